// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/SegmentedPicker.h"

#include "ui/FocusRing.h"
#include "ui/Typography.h"
#include "ui/WholeAreaStyle.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRadioButton>
#include <QVariantAnimation>

#include <algorithm>
#include <chrono>

namespace zamber::ui {

namespace {

constexpr int TITLE_POINTS = 13;
constexpr int PICKER_HEIGHT = 24;
constexpr int TITLE_PADDING = 8;
constexpr double PICKER_RADIUS = 6;
constexpr double INSET = 2;
constexpr std::chrono::milliseconds THUMB_SLIDING{150};

} // namespace

/// One title; the picker draws the highlight under it.
class SegmentedPicker::Segment final : public QRadioButton {
public:
    Segment(const QString& title, QWidget* parent)
        : QRadioButton(title, parent) {
        new WholeAreaStyle(this);
        setFont(textFont(TITLE_POINTS));
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_Hover);
    }

    void setColors(const Palette& palette) {
        m_palette = palette;
        update();
    }

    QSize sizeHint() const override {
        return {QFontMetrics(font()).horizontalAdvance(text()) + 2 * TITLE_PADDING, PICKER_HEIGHT};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF inside = QRectF(rect()).adjusted(INSET, INSET, -INSET, -INSET);
        if (!isChecked() && underMouse()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(faded(m_palette.primary, isDown() ? 0.10 : 0.05));
            painter.drawRoundedRect(inside, PICKER_RADIUS - INSET, PICKER_RADIUS - INSET);
        }
        QFont title = font();
        title.setWeight(isChecked() ? QFont::Medium : QFont::Normal);
        painter.setFont(title);
        painter.setPen(isChecked() ? m_palette.primary : m_palette.secondary);
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (hasFocus()) {
            paintFocusRing(painter, inside, PICKER_RADIUS - INSET, m_palette);
        }
    }

private:
    Palette m_palette;
};

SegmentedPicker::SegmentedPicker(const QString& name, const QList<Choice>& choices, QWidget* parent)
    : QWidget(parent)
    , m_choices(choices)
    , m_palette(Palette::light(Qt::blue))
    , m_sliding(new QVariantAnimation(this)) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (const Choice& choice : choices) {
        auto* segment = new Segment(choice.title, this);
        connect(segment, &QRadioButton::toggled, this, &SegmentedPicker::handleChange);
        connect(segment, &QRadioButton::toggled, this, [this, value = choice.value](bool isChecked) {
            if (isChecked && !signalsBlocked()) {
                Q_EMIT chosen(value);
            }
        });
        m_segments << segment;
    }
    handleChange();
    m_sliding->setDuration(static_cast<int>(THUMB_SLIDING.count()));
    m_sliding->setEasingCurve(QEasingCurve::InOutQuad);
    connect(m_sliding, &QVariantAnimation::valueChanged, this, [this](const QVariant& position) {
        m_position = position.toDouble();
        update();
    });
}

std::optional<qsizetype> SegmentedPicker::checkedIndex() const {
    const auto found = std::ranges::find_if(m_segments, [](const Segment* segment) { return segment->isChecked(); });
    return found == m_segments.end() ? std::nullopt : std::optional(found - m_segments.begin());
}

std::optional<QString> SegmentedPicker::value() const {
    const auto index = checkedIndex();
    return index ? std::optional(m_choices[*index].value) : std::nullopt;
}

void SegmentedPicker::setValue(const QString& value) {
    const QSignalBlocker silence(this);
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        // Radio buttons that exclude each other cannot all be off.
        m_segments[i]->setAutoExclusive(false);
        m_segments[i]->setChecked(m_choices[i].value == value);
    }
    for (Segment* const segment : m_segments) {
        segment->setAutoExclusive(true);
    }
    handleChange();
}

void SegmentedPicker::setColors(const Palette& palette) {
    m_palette = palette;
    for (Segment* const segment : m_segments) {
        segment->setColors(palette);
    }
    update();
}

QSize SegmentedPicker::sizeHint() const {
    int widest = 0;
    for (const Segment* const segment : m_segments) {
        widest = std::max(widest, segment->sizeHint().width());
    }
    return {widest * static_cast<int>(m_segments.size()), PICKER_HEIGHT};
}

QRectF SegmentedPicker::place(qsizetype index) const {
    const double share = static_cast<double>(width()) / static_cast<double>(m_segments.size());
    return {static_cast<double>(index) * share, 0, share, static_cast<double>(height())};
}

void SegmentedPicker::resizeEvent(QResizeEvent*) {
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        m_segments[i]->setGeometry(place(i).toAlignedRect());
    }
}

void SegmentedPicker::handleChange() {
    // Qt lets Tab stop at the first of a group, whichever is chosen.
    const auto checked = checkedIndex();
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        m_segments[i]->setFocusPolicy(i == checked.value_or(0) ? Qt::StrongFocus : Qt::ClickFocus);
    }
    slide();
}

void SegmentedPicker::slide() {
    const auto index = checkedIndex();
    if (!index) {
        update();
        return;
    }
    m_sliding->stop();
    if (m_motion == Motion::Reduced || !isVisible()) {
        m_position = static_cast<double>(*index);
        update();
        return;
    }
    m_sliding->setStartValue(m_position);
    m_sliding->setEndValue(static_cast<double>(*index));
    m_sliding->start();
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_palette.tertiaryFill);
    painter.drawRoundedRect(rect(), PICKER_RADIUS, PICKER_RADIUS);

    const auto checked = checkedIndex();
    painter.setPen(QPen(m_palette.separator, 1));
    for (qsizetype i = 1; i < m_segments.size(); ++i) {
        if (checked != i && checked != i - 1) {
            const double x = place(i).left();
            painter.drawLine(QPointF(x, height() * 0.3), QPointF(x, height() * 0.7));
        }
    }
    if (!checked) {
        return;
    }
    QRectF thumb = place(0).adjusted(INSET, INSET, -INSET, -INSET);
    thumb.translate(m_position * place(0).width(), 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(Qt::black, m_palette.isDark ? 0.25 : 0.12));
    painter.drawRoundedRect(thumb.translated(0, 0.7), PICKER_RADIUS - INSET, PICKER_RADIUS - INSET);
    painter.setBrush(m_palette.isDark ? composed(faded(Qt::white, 0.24), m_palette.barMaterial) : QColor(Qt::white));
    painter.drawRoundedRect(thumb, PICKER_RADIUS - INSET, PICKER_RADIUS - INSET);
}

} // namespace zamber::ui
