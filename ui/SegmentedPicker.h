// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"
#include "ui/Switch.h"

#include <QList>
#include <QWidget>

#include <optional>

class QVariantAnimation;

namespace zamber::ui {

/// A choice among a few: segments side by side, of which one at most stands out. Tab goes to it as a whole, the arrow
/// keys choose, and to assistive technology it is a named group of radio buttons.
class SegmentedPicker final : public QWidget {
    Q_OBJECT

public:
    struct Choice {
        QString title;
        QString value;
    };

    /// The name is for assistive technology: the label beside the picker says it to everybody else.
    SegmentedPicker(const QString& name, const QList<Choice>& choices, QWidget* parent = nullptr);

    /// The value, or nothing where it was set to one that is not among the choices: then no segment stands out.
    std::optional<QString> value() const;
    /// Emits nothing.
    void setValue(const QString& value);

    void setColors(const Palette& palette);
    void setMotion(Motion motion) { m_motion = motion; }

    QSize sizeHint() const override;

signals:
    /// The user has chosen.
    void chosen(const QString& value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Segment;

    QRectF place(qsizetype index) const;
    std::optional<qsizetype> checkedIndex() const;
    void handleChange();
    void slide();

    QList<Choice> m_choices;
    QList<Segment*> m_segments;
    Palette m_palette;
    Motion m_motion = Motion::Full;
    QVariantAnimation* m_sliding;
    double m_position = 0; ///< of the highlight under the titles, in segments from the left
};

} // namespace zamber::ui
