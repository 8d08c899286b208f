// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsSidebar.h"

#include "platform/Symbols.h"
#include "settings/SettingsTheme.h"
#include "ui/FocusRing.h"
#include "ui/Typography.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <cmath>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

constexpr int WIDTH = 200;
constexpr int MINIMUM_WIDTH = 180;
constexpr int MAXIMUM_WIDTH = 220;
constexpr int MARGIN = 10;
constexpr int ROW_HEIGHT = 32;
constexpr int ROW_PADDING = 8;
constexpr double ROW_RADIUS = 6;
constexpr int TAB_SYMBOL_POINTS = 14;
constexpr int SYMBOL_WIDTH = 22;
constexpr int SYMBOL_GAP = 6;
constexpr int TAB_NAME_POINTS = 13;
constexpr int TITLE_HEIGHT = 34;
constexpr int TITLE_BOTTOM = 5;
constexpr int TITLE_POINTS = 11;
constexpr int TITLE_ROLE = Qt::UserRole;

/// The title of the group that begins with the page.
QString groupTitle(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::Clipboard:
        return u"Preferences"_s;
    case SettingsTab::About:
        return u"Zamber"_s;
    case SettingsTab::General:
    case SettingsTab::Shortcuts:
        break;
    }
    return {};
}

} // namespace

class SettingsSidebar::Delegate final : public QStyledItemDelegate {
public:
    Delegate(const SettingsTheme& theme, SettingsSidebar* list)
        : QStyledItemDelegate(list)
        , m_theme(theme)
        , m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        return {0, ROW_HEIGHT + (index.data(TITLE_ROLE).toString().isEmpty() ? 0 : TITLE_HEIGHT)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const ui::Palette& palette = m_theme.palette();
        const QRect row = option.rect;
        paintTitle(*painter, row, index.data(TITLE_ROLE).toString());

        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        const bool hasFocus = m_list->hasFocus();
        painter->setPen(Qt::NoPen);
        if (isSelected) {
            painter->setBrush(hasFocus ? palette.accentFill : ui::faded(palette.primary, 0.10));
            painter->drawRoundedRect(row, ROW_RADIUS, ROW_RADIUS);
        } else if (option.state.testFlag(QStyle::State_MouseOver)) {
            painter->setBrush(ui::faded(palette.primary, 0.05));
            painter->drawRoundedRect(row, ROW_RADIUS, ROW_RADIUS);
        }
        const SettingsTab tab = ALL_SETTINGS_TABS[static_cast<std::size_t>(index.row())];
        const bool isOnAccent = isSelected && hasFocus;
        const QPixmap symbol =
            m_theme.symbols().pixmap(icon(tab), {.pointSize = TAB_SYMBOL_POINTS,
                                                 .weight = QFont::Normal,
                                                 .color = isOnAccent ? palette.onAccent : iconColor(tab, palette),
                                                 .devicePixelRatio = m_list->devicePixelRatioF()});
        const QSizeF size = symbol.deviceIndependentSize();
        painter->drawPixmap(QPointF(std::round(row.left() + ROW_PADDING + (SYMBOL_WIDTH - size.width()) / 2),
                                    std::round(row.top() + (row.height() - size.height()) / 2)),
                            symbol);
        painter->setFont(ui::textFont(TAB_NAME_POINTS, isSelected ? QFont::Medium : QFont::Normal));
        painter->setPen(isOnAccent ? palette.onAccent : palette.primary);
        painter->drawText(row.adjusted(ROW_PADDING + SYMBOL_WIDTH + SYMBOL_GAP, 0, -ROW_PADDING, 0),
                          Qt::AlignLeft | Qt::AlignVCenter, index.data().toString());
        if (isSelected && hasFocus && m_list->m_isUsedByKeyboard) {
            ui::paintFocusRing(*painter, row, ROW_RADIUS, palette);
        }
        painter->restore();
    }

private:
    void paintTitle(QPainter& painter, const QRect& row, const QString& title) const {
        if (title.isEmpty()) {
            return;
        }
        painter.setFont(ui::textFont(TITLE_POINTS, QFont::DemiBold));
        painter.setPen(m_theme.palette().tertiary);
        const QRect place(row.left() + ROW_PADDING, row.top() - TITLE_HEIGHT, row.width() - ROW_PADDING,
                          TITLE_HEIGHT - TITLE_BOTTOM);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignBottom, title);
    }

    const SettingsTheme& m_theme;
    SettingsSidebar* m_list;
};

SettingsSidebar::SettingsSidebar(const SettingsTheme& theme)
    : m_theme(theme) {
    setAccessibleName(u"Settings pages"_s);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(MINIMUM_WIDTH);
    setMaximumWidth(MAXIMUM_WIDTH);
    setViewportMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    viewport()->setAutoFillBackground(false);
    setMouseTracking(true);
    setItemDelegate(new Delegate(theme, this));
    for (const SettingsTab tab : ALL_SETTINGS_TABS) {
        auto* item = new QListWidgetItem(rawValue(tab), this);
        item->setData(TITLE_ROLE, groupTitle(tab));
        item->setData(Qt::AccessibleDescriptionRole, groupTitle(tab));
    }
    setCurrentRow(0);
    connect(this, &QListWidget::currentRowChanged, this, [this] { Q_EMIT tabSelected(selectedTab()); });
    theme.apply(this, [this](const ui::Palette&) { viewport()->update(); });
}

SettingsTab SettingsSidebar::selectedTab() const {
    return ALL_SETTINGS_TABS[static_cast<std::size_t>(std::max(0, currentRow()))];
}

QSize SettingsSidebar::sizeHint() const {
    return {WIDTH, QListWidget::sizeHint().height()};
}

QRect SettingsSidebar::visualRect(const QModelIndex& index) const {
    const QRect item = QListWidget::visualRect(index);
    return item.adjusted(0, item.height() - ROW_HEIGHT, 0, 0);
}

bool SettingsSidebar::isOnTitle(const QPoint& position) const {
    const QListWidgetItem* const item = itemAt(position);
    return item == nullptr || position.y() < visualItemRect(item).top();
}

void SettingsSidebar::setUsedByKeyboard(bool isUsed) {
    m_isUsedByKeyboard = isUsed;
    viewport()->update();
}

void SettingsSidebar::focusInEvent(QFocusEvent* event) {
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        setUsedByKeyboard(true);
    }
    QListWidget::focusInEvent(event);
}

void SettingsSidebar::keyPressEvent(QKeyEvent* event) {
    setUsedByKeyboard(true);
    QListWidget::keyPressEvent(event);
}

void SettingsSidebar::mousePressEvent(QMouseEvent* event) {
    setUsedByKeyboard(false);
    if (!isOnTitle(event->position().toPoint())) {
        QListWidget::mousePressEvent(event);
    }
}

void SettingsSidebar::mouseMoveEvent(QMouseEvent* event) {
    // Moving the pointer with its button down would select every page on the way.
    if (event->buttons() == Qt::NoButton) {
        QListWidget::mouseMoveEvent(event);
    }
}

} // namespace zamber::settings
