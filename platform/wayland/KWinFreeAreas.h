// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QRect>
#include <QString>
#include <QTemporaryFile>

#include <functional>
#include <optional>

class QDBusMessage;

namespace zamber::wayland {

/// What panels leave free of each screen, by KWin's own word. No protocol of Wayland's tells it. KWin runs scripts for
/// programs on the session bus; one of ours calls back with the areas at once and whenever they have changed. Nothing
/// waits for it. KWin before 6 tells nothing here.
class KWinFreeAreas final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.zamber.FreeAreas")

public:
    KWinFreeAreas();

    /// Has KWin end the script.
    ~KWinFreeAreas() override;

    KWinFreeAreas(const KWinFreeAreas&) = delete;
    KWinFreeAreas& operator=(const KWinFreeAreas&) = delete;

    /// The free area of the screen of that name (points, on the desktop); nothing before KWin has told.
    std::optional<QRect> of(const QString& screen) const;

public Q_SLOTS:
    /// KWin's script calls this over the bus. The areas are a JSON object: by a screen's name the left, the top, the
    /// width and the height of what is free of it.
    Q_SCRIPTABLE void setFreeAreas(const QString& areas);

private:
    void load();
    void run(int script);
    void ask(const QString& path, const QString& method, const QVariantList& arguments,
             const std::function<void(const QDBusMessage&)>& then);

    QTemporaryFile m_script; ///< until KWin has read it
    QHash<QString, QRect> m_areas;
};

/// What the script tells, by the screens' names: the points that are wholly inside. What is not understood is left out.
QHash<QString, QRect> freeAreasIn(const QString& told);

} // namespace zamber::wayland
