// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ClipboardListView.h"

#include "preferences/PreferenceKeys.h"

#include "clipboard/ClipboardManager.h"
#include "platform/Appearance.h"
#include "platform/Scheduler.h"
#include "platform/Symbols.h"
#include "popover/HistoryListAccessible.h"
#include "popover/HistoryListWidget.h"
#include "popover/ListAnnouncements.h"
#include "popover/PopoverBars.h"
#include "popover/PopoverPreferences.h"
#include "popover/RowMenu.h"
#include "ui/Announcer.h"
#include "ui/ConfirmationSheet.h"
#include "ui/SearchField.h"
#include "ui/Typography.h"

#include <QAccessible>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

constexpr int SEARCH_MARGIN_HORIZONTAL = 12;
constexpr int SEARCH_MARGIN_BOTTOM = 8;

} // namespace

ClipboardListView::ClipboardListView(KeyMonitor& keyMonitor, const Appearance& appearance, const Symbols& symbols,
                                     UserDefaults& defaults, Scheduler& scheduler,
                                     std::shared_ptr<clipboard::ClipboardManager> manager, PopoverServices services)
    : m_keyMonitor(keyMonitor)
    , m_appearance(appearance)
    , m_symbols(symbols)
    , m_defaults(defaults)
    , m_manager(std::move(manager))
    , m_services(std::move(services))
    , m_header(new PopoverHeader(
          symbols,
          m_services.openSettings ? PopoverHeader::SettingsButton::Shown : PopoverHeader::SettingsButton::Hidden, this))
    , m_banner(new UpdateBanner(symbols, this))
    , m_search(new ui::SearchField(symbols, u"Search clipboard…"_s, this))
    , m_list(new HistoryListWidget(symbols, appearance, scheduler, m_services.linkDetector, this))
    , m_emptyState(new EmptyState(symbols, m_services.commandKeyHint, this))
    , m_footer(new PopoverFooter(symbols, this))
    , m_clearConfirmation(new ui::ConfirmationSheet(
          {.title = u"Clear all clipboard items?"_s,
           .message = u"This will remove all non-pinned items. This action cannot be undone."_s,
           .destructiveButton = u"Clear All"_s},
          this))
    , m_announcer(new ui::Announcer(this)) {
    setAccessibleName(u"Zamber"_s);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusProxy(m_search);
    m_search->focusProxy()->installEventFilter(this);
    m_banner->setObjectName(u"updateBanner"_s);
    m_banner->hide();
    new ListAnnouncements(
        *m_manager, scheduler,
        {.announce = [this](const QString& sentence) { m_announcer->announce(sentence); },
         .selectedRow = [this] { return hasSelectedRow() ? m_list->preview(m_selectedIndex) : QString(); }},
        this);
    buildLayout();
    connectParts();
    observePreferences();
    updateSize();
    updateAppearance();
    updatePreferences();
    historyChanged();
}

ClipboardListView::~ClipboardListView() {
    for (const UserDefaults::ObserverToken token : m_observers) {
        m_defaults.removeObserver(token);
    }
    if (m_keyMonitorToken) {
        m_keyMonitor.removeHandler(*m_keyMonitorToken);
    }
}

void ClipboardListView::buildLayout() {
    auto* searchRow = new QVBoxLayout;
    searchRow->setContentsMargins(SEARCH_MARGIN_HORIZONTAL, 0, SEARCH_MARGIN_HORIZONTAL, SEARCH_MARGIN_BOTTOM);
    searchRow->addWidget(m_search);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_banner);
    column->addLayout(searchRow);
    column->addWidget(m_list, 1);
    column->addWidget(m_emptyState, 1);
    column->addWidget(m_footer);
}

void ClipboardListView::connectParts() {
    connect(m_manager.get(), &clipboard::ClipboardManager::itemsChanged, this, &ClipboardListView::historyChanged);
    connect(m_manager.get(), &clipboard::ClipboardManager::searchTextChanged, this, &ClipboardListView::searchChanged);
    connect(m_search, &ui::SearchField::textChanged, m_manager.get(), &clipboard::ClipboardManager::setSearchText);

    if (m_services.openSettings) {
        connect(m_header, &PopoverHeader::settingsRequested, this, m_services.openSettings);
    }
    connect(m_footer, &PopoverFooter::clearRequested, this, &ClipboardListView::showClearConfirmation);
    connect(m_clearConfirmation, &ui::ConfirmationSheet::confirmed, m_manager.get(),
            &clipboard::ClipboardManager::clearAll);
    connect(m_clearConfirmation, &ui::ConfirmationSheet::dismissed, this, &ClipboardListView::dismissClearConfirmation);

    connect(m_list, &HistoryListWidget::chosen, this, &ClipboardListView::choose);
    connect(m_list, &HistoryListWidget::pinRequested, m_manager.get(), &clipboard::ClipboardManager::togglePin);
    connect(m_list, &HistoryListWidget::deleteRequested, m_manager.get(), &clipboard::ClipboardManager::deleteItem);
    connect(m_list, &HistoryListWidget::openLinkRequested, this, &ClipboardListView::openAddress);
    connect(m_list, &HistoryListWidget::selectRequested, this, &ClipboardListView::select);
    connect(m_list, &HistoryListWidget::menuRequested, this, &ClipboardListView::showRowMenu);
}

void ClipboardListView::observePreferences() {
    const auto observe = [this](QLatin1StringView key, void (ClipboardListView::*react)()) {
        m_observers.push_back(m_defaults.addObserver(key, [this, react] { (this->*react)(); }));
    };
    observe(preferences::popoverSize.name, &ClipboardListView::updateSize);
    observe(preferences::appTheme.name, &ClipboardListView::updateAppearance);
    observe(preferences::maxItems.name, &ClipboardListView::refreshCounts);
    for (const auto& key : {preferences::showLineCount, preferences::showCharCount, preferences::previewURLs,
                            preferences::hideSensitive}) {
        observe(key.name, &ClipboardListView::updatePreferences);
    }
}

void ClipboardListView::historyChanged() {
    refreshCounts();
    m_footer->setClearShown(canClear());
    m_list->keepOnly(m_manager->items());
    refreshRows();
}

void ClipboardListView::refreshCounts() {
    m_header->setCount(m_manager->items().size(), m_manager->maxItems());
}

void ClipboardListView::refreshRows() {
    m_search->setText(m_manager->searchText());
    const QList<clipboard::ClipboardItem> shown = m_manager->filteredItems();
    m_list->setItems(shown);
    m_list->setVisible(!shown.isEmpty());
    m_emptyState->setReason(m_manager->searchText().isEmpty() ? EmptyState::Reason::EmptyHistory
                                                              : EmptyState::Reason::NoMatch);
    m_emptyState->setVisible(shown.isEmpty());
}

void ClipboardListView::searchChanged() {
    refreshRows();
    m_list->showSelection(); // the row that Return is about to choose
    if (std::exchange(m_isRowAnnounced, false)) {
        HistoryListAccessible::announceFocus(*m_search->focusProxy());
    }
}

void ClipboardListView::updateSize() {
    // The wanted size; on a low screen the popover is smaller.
    const QSize size = popoverSize(m_defaults);
    setMaximumSize(size);
    resize(size);
}

void ClipboardListView::updatePreferences() {
    m_list->setPreferences({.showLineCount = read(m_defaults, preferences::showLineCount),
                            .showCharCount = read(m_defaults, preferences::showCharCount),
                            .previewURLs = read(m_defaults, preferences::previewURLs),
                            .hideSensitive = read(m_defaults, preferences::hideSensitive)});
}

void ClipboardListView::updateAppearance() {
    m_palette = popoverPalette(popoverAppearance(m_defaults), m_appearance);
    setPalette(m_palette.forWidgets()); // for the menus and tool tips that come from here
    m_header->setColors(m_palette);
    m_banner->setColors(m_palette);
    m_search->setColors(m_palette);
    m_list->setColors(m_palette);
    m_emptyState->setColors(m_palette);
    m_footer->setColors(m_palette);
    m_clearConfirmation->setColors(m_palette);
    update();
}

void ClipboardListView::setUpdateNotice(const std::optional<UpdateNotice>& notice) {
    if (notice) {
        m_banner->setNotice(*notice);
    }
    m_banner->setVisible(notice.has_value());
}

KeyDisposition ClipboardListView::handleKey(HardwareKey key) {
    const QList<clipboard::ClipboardItem>& allItems = m_list->items();
    const int count = static_cast<int>(allItems.size());
    switch (key) {
    case HardwareKey::UpArrow:
        if (count > 0) {
            select(std::max(0, m_selectedIndex - 1));
        }
        return KeyDisposition::Swallow;
    case HardwareKey::DownArrow:
        if (count > 0) {
            select(std::min(count - 1, m_selectedIndex + 1));
        }
        return KeyDisposition::Swallow;
    case HardwareKey::Return:
        if (m_selectedIndex < count) {
            choose(clipboard::ClipboardItem(allItems[m_selectedIndex]));
        }
        return KeyDisposition::Swallow;
    case HardwareKey::Escape:
        m_services.closePopover();
        return KeyDisposition::Swallow;
    case HardwareKey::Other:
        break;
    }
    return KeyDisposition::PassOn;
}

void ClipboardListView::select(int index) {
    if (index == m_selectedIndex) {
        return;
    }
    m_selectedIndex = index;
    m_list->select(index);
    if (index < m_list->items().size()) {
        HistoryListAccessible::announceSelection(m_list, index);
        m_isRowAnnounced = true;
    }
}

void ClipboardListView::choose(const clipboard::ClipboardItem& item) {
    m_announcer->announce(u"Copied"_s);
    m_manager->copyToClipboard(item);
    if (m_manager->onPaste) {
        m_manager->onPaste();
    }
}

void ClipboardListView::openAddress(const QUrl& address) {
    if (m_services.openAddress) {
        m_services.openAddress(address);
    }
}

void ClipboardListView::showClearConfirmation() {
    if (!isVisible()) {
        return; // a press by assistive technology may come after the popover has closed
    }
    m_clearConfirmation->raise();
    m_clearConfirmation->show();
}

void ClipboardListView::dismissClearConfirmation() {
    m_clearConfirmation->hide();
    m_search->setFocus();
}

void ClipboardListView::paintEvent(QPaintEvent*) {
    if (!testAttribute(Qt::WA_TranslucentBackground)) { // else the host has a material of its own behind the content
        QPainter(this).fillRect(rect(), m_palette.ultraThinMaterial);
    }
}

void ClipboardListView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) {
        return;
    }
    m_selectedIndex = 0;
    m_isRowAnnounced = false;
    m_list->startAtTop();
    m_search->setFocus();
    m_search->selectAll();
    m_keyMonitorToken = m_keyMonitor.addHandler([this](HardwareKey key) { return handleKey(key); });
}

void ClipboardListView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous()) {
        return;
    }
    if (m_keyMonitorToken) {
        m_keyMonitor.removeHandler(*m_keyMonitorToken);
        m_keyMonitorToken.reset();
    }
    m_clearConfirmation->hide();
    for (QMenu* const menu : findChildren<QMenu*>()) {
        menu->close();
    }
}

} // namespace zamber::popover
