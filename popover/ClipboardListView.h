// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"
#include "platform/KeyMonitor.h"
#include "platform/UserDefaults.h"
#include "popover/PopoverServices.h"
#include "popover/UpdateBanner.h"
#include "ui/Palette.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

namespace zamber {
class Appearance;
class Scheduler;
class Symbols;
} // namespace zamber

namespace zamber::clipboard {
class ClipboardManager;
}

namespace zamber::ui {
class Announcer;
class ConfirmationSheet;
class SearchField;
} // namespace zamber::ui

namespace zamber::popover {

class EmptyState;
class HistoryListWidget;
class PopoverFooter;
class PopoverHeader;
class RowMenu;
enum class PopoverCommand;

/// The popover's whole content: the history, a search over it, and the keyboard that moves through it.
///
/// While it is shown it watches the program's keys; the search field has the keyboard focus. Follows the history and
/// the preferences as they change.
class ClipboardListView final : public QWidget {
    Q_OBJECT

public:
    ClipboardListView(KeyMonitor& keyMonitor, const Appearance& appearance, const Symbols& symbols,
                      UserDefaults& defaults, Scheduler& scheduler,
                      std::shared_ptr<clipboard::ClipboardManager> manager, PopoverServices services);
    ~ClipboardListView() override;

    /// Takes over the desktop's look. To be called when the appearance has changed; the preference for light or dark is
    /// followed without a call.
    void updateAppearance();

    /// Tells of a newer version in a banner, or shows none.
    void setUpdateNotice(const std::optional<UpdateNotice>& notice);

    int selectedIndex() const { return m_selectedIndex; }
    HistoryListWidget& list() const { return *m_list; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildLayout();
    void connectParts();
    void observePreferences();

    void historyChanged();
    void refreshCounts();
    void refreshRows();
    void searchChanged();
    void updateSize();
    void updatePreferences();

    KeyDisposition handleKey(HardwareKey key);
    void select(int index);
    void choose(const clipboard::ClipboardItem& item);
    void openAddress(const QUrl& address);
    bool performCommandOf(const QKeyEvent& press);
    void perform(PopoverCommand command);
    bool hasSelectedRow() const;
    void showSelectedRowMenu();
    void showRowMenu(int row, QPoint screenPosition);
    bool canClear() const;
    void showClearConfirmation();
    void dismissClearConfirmation();

    KeyMonitor& m_keyMonitor;
    const Appearance& m_appearance;
    const Symbols& m_symbols;
    UserDefaults& m_defaults;
    std::shared_ptr<clipboard::ClipboardManager> m_manager;
    PopoverServices m_services;
    ui::Palette m_palette;

    PopoverHeader* m_header;
    UpdateBanner* m_banner;
    ui::SearchField* m_search;
    HistoryListWidget* m_list;
    EmptyState* m_emptyState;
    PopoverFooter* m_footer;
    ui::ConfirmationSheet* m_clearConfirmation;
    ui::Announcer* m_announcer;
    QPointer<RowMenu> m_rowMenu;

    int m_selectedIndex = 0;
    bool m_isRowAnnounced = false; ///< screen readers believe that a row has the focus, which the search field has
    std::optional<KeyMonitor::Token> m_keyMonitorToken;
    std::vector<UserDefaults::ObserverToken> m_observers;
};

} // namespace zamber::popover
