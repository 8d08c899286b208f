// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace zamber::freedesktop::tray {

/// The clipboard as panels show it, in that many pixels each way.
///
/// Nothing tells a panel's colour, so the drawing carries both of its own: a light sheet, which stands out on a dark
/// panel, within dark lines, which stand out on a light one. All edges lie between pixels.
QImage trayPicture(int pixels);

} // namespace zamber::freedesktop::tray
