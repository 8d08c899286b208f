// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace zamber::macos {

/// Creates the shared application and gives it a delegate of ours. To be called before Qt's application object is made;
/// Qt's delegate then forwards to ours the messages that it does not respond to.
void installApplicationDelegate();

/// Makes our delegate respond to the action with that selector from now on; the last responder that was set counts.
/// Actions without a target reach the delegate along the responder chain.
void respondToAction(const QString& selector, std::function<void()> responder);

/// Sets the function that is called when the user starts the program while it is running.
void setReopenHandler(std::function<void()> handler);

} // namespace zamber::macos
