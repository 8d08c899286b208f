// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace zamber::wayland {

/// Other programs on the same compositor, each a process of its own: one that copies, and wl-paste.
class WaylandPartner final {
public:
    WaylandPartner();
    ~WaylandPartner();
    WaylandPartner(const WaylandPartner&) = delete;
    WaylandPartner& operator=(const WaylandPartner&) = delete;

    /// Bytes by type; nothing for a type whose bytes never come.
    using Offers = std::vector<std::pair<QByteArray, std::optional<QByteArray>>>;

    /// Copies; the compositor knows of it when this returns, whatever our own loop has not done.
    void copy(const Offers& offers);
    /// Copies one type, of whose bytes only these first ones come.
    void copyBeginning(const QByteArray& type, const QByteArray& beginning);
    void clearClipboard();
    void die();
    void stop();
    /// Which types were asked for, in their order.
    QByteArrayList requests() const;

    /// What a program gets that pastes this type, or nothing.
    std::optional<QByteArray> pasted(const char* type);

    /// Lets the main loop run until the condition holds; false when it gives up.
    static bool waitUntil(const std::function<bool()>& condition, int milliseconds = 5000);

private:
    void tell(const QJsonObject& order);

    QTemporaryDir m_folder;
    QProcess m_owner;
    int m_files = 0;
};

/// A program with a window that texts are pasted into, in front once it has come up.
class WaylandEditor final {
public:
    WaylandEditor();
    ~WaylandEditor();
    WaylandEditor(const WaylandEditor&) = delete;
    WaylandEditor& operator=(const WaylandEditor&) = delete;

    /// How often Ctrl and V were pressed in it.
    int pastesReceived() const;
    /// Whether Insert was pressed in it.
    bool hasReceivedInsert() const;

private:
    /// How often the key was pressed in it with at least these modifiers, by Gdk's names and numbers.
    int presses(QStringView key, int modifiers) const;

    QTemporaryDir m_folder;
    QProcess m_process;
};

} // namespace zamber::wayland
