# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What would break for people who use the program if one line of it were another, and the test that has to notice."""

from breakage import Breakage

SESSION = "platform/freedesktop/session/"

USE_BREAKAGES = (
    # What people do with keys.
    Breakage(
        "a quick paste is for the application that was in front at the press", "app/Paste.cpp",
        ".target = std::nullopt});", ".target = self->m_previousApp});",
        "app_tests:AppDelegateTest.QuickPasteIsForTheApplicationThatIsInFrontWhenTheKeystrokeIsTyped",
    ),
    Breakage(
        "the popover's keystroke goes to whichever window is in front", "app/Paste.cpp",
        ".target = self->m_previousApp});", ".target = std::nullopt});",
        "app_tests:AppDelegateTest.APasteClosesThePopoverActivatesAndTypesAfter350Milliseconds",
    ),
    Breakage(
        "a paste that was given up is logged as one", "app/Paste.cpp",
        "        if (outcome == PasteOutcome::Posted) {", "        if (outcome != PasteOutcome{99}) {",
        "app_tests:AppDelegateTest.APasteThatWasGivenUpIsNotLoggedAsOne",
    ),
    Breakage(
        "a hot key does nothing in a menu of ours", "platform/x11/X11HotKeyCenter.cpp",
        "    QCoreApplication::instance()->installEventFilter(this);\n", "",
        "test_hotkeys.MenuTest.test_the_main_hot_key_in_the_trays_menu",
    ),
    Breakage(
        "gvim is taken for a common editor", "platform/freedesktop/selection/PasteKeystroke.cpp",
        '    Row{"gvim", PasteKeystroke::ShiftInsert},\n', "",
        "selection_tests:PasteKeystroke.EditorsInWhichControlVMeansSomethingElseGetShiftInsert",
    ),
    Breakage(
        "a window of another machine is taken for a process of this one", "platform/x11/Windows.cpp",
        "    if (!machine.isEmpty() && !isThisMachine(machine)) {", "    if (false) {",
        "test_applications.WindowOfAnotherMachineTest."
        "test_it_is_pasted_into_when_it_comes_to_the_front_while_the_keys_are_held",
    ),
    Breakage(
        "the next search goes on with the former one", "popover/ClipboardListView.cpp",
        "    m_search->selectAll();\n", "",
        "popover_tests:ClipboardListKeyboardTest.TheFormerSearchIsSelectedSoThatTheNextOneReplacesIt",
    ),
    Breakage(
        "the desktop's shortcut is set without the switch", "settings/DesktopShortcutSection.cpp",
        "            show(*control, *caption, shortcut, {});\n            QObject",
        "            show(*control, *caption, shortcut, shortcut.set());\n            QObject",
        "settings_tests:DesktopShortcutRowTest.TheShortcutIsSetAndTakenAwayByTheSwitchAndByNothingElse",
    ),
    # Starting, quitting, and the session.
    Breakage(
        "a palette of our own is taken for a change of the desktop's", SESSION + "PortalAppearance.cpp",
        "    if (now == m_told) {\n        return;\n    }\n", "",
        "widget_contract_tests:*TheHandlerIsCalledAfterAChangeAndOnlyThen",
    ),
    Breakage(
        "the desktop's changes of colours are not followed", SESSION + "PortalAppearance.cpp",
        "    take(arguments.at(0).toString(), arguments.at(1).toString(), arguments.at(2));\n", "",
        "test_appearance.LiveChangesTest.test_light_and_dark_are_followed",
    ),
    Breakage(
        "what is scheduled runs after the adapters have gone", "platform/x11/X11Desktop.cpp",
        "    ~Adapters() { stop(); }", "    ~Adapters() {}",
        "test_quitting.QuittingTest.test_after_an_entry_was_chosen",
    ),
    Breakage(
        "a session manager is told to start the program again", "platform/freedesktop/QtApplication.cpp",
        "QSessionManager::RestartNever", "QSessionManager::RestartIfRunning",
        "test_session.SessionManagerTest.test_it_is_told_never_to_start_the_program",
    ),
    Breakage(
        "two programs have one history", SESSION + "FileLock.cpp",
        "            return nullptr;\n", "            return lock;\n",
        "session_tests:FileLockTest.OneHasItUntilItsEnd",
    ),
    Breakage(
        "a browser's words land in the log", SESSION + "Programs.cpp",
        "    process.setStandardOutputFile(QProcess::nullDevice());\n", "",
        "session_tests:ProgramsTest.AnAddressGoesToTheDesktopsOpenerWithTheUsersEnvironmentAndNoStreams",
    ),
    Breakage(
        "a browser is told of our own start", SESSION + "Programs.cpp",
        "        m_environment.remove(variable);\n", "        static_cast<void>(variable);\n",
        "session_tests:ProgramsTest.AnAddressGoesToTheDesktopsOpenerWithTheUsersEnvironmentAndNoStreams",
    ),
    Breakage(
        "an entry that starts nothing counts as a login item", SESSION + "XdgLoginItem.cpp",
        " && !program.isEmpty() && isExecutable(program)", "",
        "contract_tests:XdgLoginItemTest.WhatTheEntryWouldStartIsLookedForToo",
    ),
    Breakage(
        "the permission window takes the keyboard", "app/PermissionWindow.cpp",
        "    setAttribute(Qt::WA_ShowWithoutActivating);\n", "",
        "test_permission.PermissionTest.test_the_keyboard_stays_where_it_was",
    ),
    # The log.
    Breakage(
        "a line of the log is as long as what it tells of", "platform/Log.cpp",
        "        if (text.size() > longest) {", "        if (text.size() > 100 * longest) {",
        "platform_tests:Log.ALineUpToTheBoundIsWholeAndALongerOneIsCut",
    ),
    Breakage(
        "control characters reach the terminal", "platform/Log.cpp",
        "    if (first < 0x20) {", "    if (false) {",
        "platform_tests:Log.ControlCharactersAreVisible",
    ),
    Breakage(
        "a window class names a file elsewhere", SESSION + "ApplicationNames.cpp",
        "name.contains(u'/') || ", "",
        "session_tests:ApplicationNamesTest.NoClassNamesAFileElsewhere",
    ),
    Breakage(
        "an application has its English name", SESSION + "ApplicationNames.cpp",
        '            QString found = entry->localeString(u"Name"_s, m_locales);',
        '            QString found = entry->string(u"Name"_s);',
        "test_applications.ApplicationNamesTest.test_it_is_in_the_users_language",
    ),
    Breakage(
        "a window class that an entry names is not looked for", SESSION + "ApplicationNames.cpp",
        "if (!windowClass.isEmpty() && ", "if (windowClass.isNull() && ",
        "session_tests:ApplicationNamesTest.AnEntryThatNamesTheClassHasTheName",
    ),
    # The tray and the popover's place.
    Breakage(
        "a click beside the icon takes the next click's effect", "platform/freedesktop/tray/TrayClicks.cpp",
        "    const bool isSamePlace = (*m_closingPress - *pointer).manhattanLength() <= WIDEST_ICON;",
        "    const bool isSamePlace = !pointer->isNull();",
        "tray_tests:*ClickAfterClosingPress*",
    ),
    Breakage(
        "a click that has closed the popover shows it again", "platform/freedesktop/tray/TrayClicks.cpp",
        "    return !isSamePlace;", "    return isSamePlace || !isSamePlace;",
        "tray_tests:*ClickOnIcon*",
    ),
    Breakage(
        "a click acts as the button goes down", "platform/x11/IconWindow.cpp",
        "    m_pressedButton = event->button();\n", "    m_pressedButton = event->button();\n    Q_EMIT clicked(event->button());\n",
        "test_tray_embedded.EmbeddedIconTest.test_a_click_acts_when_the_button_comes_up",
    ),
    Breakage(
        "an icon at the screen's origin is no icon", "platform/x11/X11EmbeddedIcon.cpp",
        "    if (!place) {", "    if (!place || (place->dst_x == 0 && place->dst_y == 0)) {",
        "test_tray_embedded.IconAtTheOriginTest.test_the_popover_hangs_from_it_and_its_clicks_toggle",
    ),
    Breakage(
        "the popover hangs at the top though the panel is below", "platform/freedesktop/popover/WorkArea.cpp",
        "workArea.bottomLeft() : workArea.bottomRight();", "workArea.bottomLeft() : workArea.topRight();",
        "test_tray_places.PanelsTest.test_a_panel_at_the_bottom",
    ),
    Breakage(
        "a compositor that ends leaves a black margin", "platform/freedesktop/popover/PopoverWindow.cpp",
        "        if (isShown()) {\n            applyShape();", "        if (false) {\n            applyShape();",
        "test_popover_places.DyingCompositorTest.test_a_compositor_that_ends_takes_the_room_for_the_shadow_along",
    ),
    Breakage(
        "the gear leaves the popover open", "settings/SettingsWindow.cpp",
        "    emit cameToFront();\n", "",
        "test_settings.SettingsWindowTest.test_the_gear_closes_the_popover_and_the_keys_are_the_settings_own",
    ),
    # The list.
    Breakage(
        "a list that changes is not held", "popover/HistoryLayout.cpp",
        "        m_geometry.keep(*anchor, m_roomBelow);", "        m_geometry.scrollTo(m_geometry.offset());",
        "popover_tests:HistoryListPlacesTest.*",
    ),
    Breakage(
        "the row that takes a deleted one's place is not the one under the pointer", "popover/HistoryLayout.cpp",
        "        m_hovered = successor;\n", "        m_hovered.reset();\n",
        "popover_tests:HistoryListPlacesTest.*",
    ),
    Breakage(
        "rows grow while the list scrolls", "popover/ListPointer.cpp",
        "        m_scrolling.wheelTurned(point);\n        m_layout.setRoomBelow",
        "        hover(targetAt(point), m_motion());\n        m_layout.setRoomBelow",
        "popover_tests:HistoryListScrollingTest.*",
    ),
    Breakage(
        "an expanded text takes the wheel from the list", "popover/ListPointer.cpp",
        "    const auto row = m_scrolling.isActive() ? std::nullopt : m_layout.rowAt(point);",
        "    const auto row = m_layout.rowAt(point);",
        "popover_tests:HistoryListScrollingTest.*",
    ),
    Breakage(
        "a text scrolls by the height that its row has by then", "popover/ExpandedText.cpp",
        "std::clamp(m_scrollOffset + distance, 0.0, std::max(0.0, whole - shown));",
        "std::clamp(m_scrollOffset + distance, 0.0, whole);",
        "popover_tests:HistoryListScrollingTest.*",
    ),
    # Copies, and looking for them.
    Breakage(
        "a signal costs a save", "clipboard/HistoryFile.cpp",
        "newSize);\n        } while (result != 0 && errno == EINTR);", "newSize);\n        } while (result > 0);",
        "clipboard_tests:HistoryFileTest.ASignalWhileSpaceIsSetAsideCostsNoSave",
    ),
    Breakage(
        "a number that is too small drops its record", "clipboard/HistoryReader.cpp",
        "    if (!isNumber && std::abs(roughly) < 1) {", "    if (!isNumber && std::abs(roughly) < 0) {",
        "clipboard_tests:HistoryReader.ANumberTooSmallForADoubleIsZeroAndOneTooLargeIsNoTimestamp",
    ),
    Breakage(
        "all texts are made ready at the first letter", "clipboard/SearchKeys.cpp",
        "        m_thread.start([this, missing, folding] { make(missing, folding); });",
        "        make(missing, folding);",
        "clipboard_tests:SearchKeysTest.TextsAreMadeReadyWithoutASearch",
    ),
)
