// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The stand-ins' other side: what was asked of the system, and the part of the user, of other programs and of the
/// system's servers.
namespace zamber::system {

// Calls.cpp: the calls since the process began, in their order.
void note(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::vector<std::string>& calls();
std::vector<std::string> callsDuring(const std::function<void()>& action);
/// Those that begin so.
std::vector<std::string> callsDuring(const std::string& beginning, const std::function<void()>& action);

// RunLoop.mm: one turn of the main run loop. The modes are their names without the system's decoration.
void turn(const QString& mode = QStringLiteral("default"));
void later(int milliseconds, std::function<void()> action); ///< out of the main queue, in every mode
void skip(std::chrono::milliseconds time);                  ///< that much time is over at once

// KeyEvents.mm
void setTrusted(bool isTrusted);
bool isTrusted();
void holdHotKeyElsewhere(unsigned keyCode, bool isHeld);
void failToCreateEvents(bool isFailing);
/// An event of that kind of the keyboard's class, with the hot key's id or without one.
void sendKeyboardEvent(unsigned kind, std::optional<unsigned> hotKeyId);
void callNewestHandlerWithNothing(); ///< once without its data, once without an event
/// The user presses a combination of those that are registered, and lets go; locks are no part of the modifiers.
void pressHotKey(unsigned keyCode, unsigned modifiers);
void forgetHotKeys();  ///< with their handlers, as the end of the process has it
int livingKeyEvents(); ///< events and their sources that were not released
/// How often ⌘V was posted while that application was in front.
int pastesReceived(int application);

// Events.mm: a key of the keyboard while our own application has it.
void pressKey(unsigned short code);

// Menus.mm: the button of the status item that was made last. A menu that opens stays open until the choice is made;
// nothing is chosen where the function gives -1.
enum class Click { Left, Right };
void clickStatusItem(Click click);
void setMenuChoice(std::function<int(const std::vector<std::string>& titles)> choose);
void setStatusItemHasButton(bool hasButton);

// Popover.mm
void pressOutsidePopover();
constexpr int POPOVER_INSET = 13; ///< what a popover keeps of its window around its content
constexpr int FADE_MILLISECONDS = 40;

// Applications.mm
void answerAlert(int buttonOrCode); ///< the next one, at once

// Drawing.mm
void setDark(bool isDark);
void setReducedMotion(bool isReduced);
void setAccent(double red, double green, double blue);

// Workspace.mm: other programs.
int openApplication(const char* name);
void quitApplication(int number);
void bringApplicationToFront(int number);
int applicationInFront(); ///< 0 without one

// Services.mm
void failLoginItem(bool isFailing);
void setLoginItemStatus(int status);
void setSoundsThere(bool areThere);

// Files.mm
void setBundle(const QString& path, const std::vector<std::pair<QString, QString>>& texts,
               const std::vector<std::pair<QString, int>>& numbers = {});
void setHome(const QString& path); ///< with a .Trash and a Library

// Pasteboard.mm: another program copies.
void copyTextElsewhere(const QString& text);

} // namespace zamber::system
