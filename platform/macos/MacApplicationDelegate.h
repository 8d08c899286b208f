// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace zamber::macos {

/// Makes the shared application with a delegate of ours. Comes before Qt's application object, which then hands on to
/// that delegate what its own does not answer to.
void installApplicationDelegate();

/// Has our delegate answer to the action of that selector name from now on; the newest responder of a name counts.
/// Actions that are sent to nobody in particular come to it along the responder chain.
void respondToAction(const QString& selector, std::function<void()> responder);

/// What is done when the user starts the program while it runs.
void setReopenHandler(std::function<void()> handler);

} // namespace zamber::macos
