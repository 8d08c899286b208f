# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What could be broken in the adapters for X11 and Wayland by one line, and the test that has to notice."""

from breakage import Breakage

X11 = "platform/x11/"
SELECTION = "platform/freedesktop/selection/"


ADAPTER_BREAKAGES = (
    Breakage(
        "a transfer has no deadline", X11 + "IncomingTransfer.cpp",
        "    m_patience.start(PATIENCE);\n    xcb_convert_selection", "    xcb_convert_selection",
        "test_hostile_owners.SilentOwnersTest."
        "test_an_owner_that_does_not_tell_its_targets_is_asked_for_a_text_all_the_same",
    ),
    Breakage(
        "the window of a transfer goes with it", X11 + "IncomingTransfer.cpp",
        "m_left.push_back(transfer->window());", "xcb_destroy_window(m_connection.raw(), transfer->window());",
        "test_hostile_owners.StallingOwnersTest.test_an_owner_that_lets_go_of_our_window_late",
    ),
    Breakage(
        "the window of a transfer goes when it is not wanted any more", X11 + "IncomingTransfer.cpp",
        "    m_done = nullptr;\n", "    m_done = nullptr;\n    xcb_destroy_window(m_connection.raw(), m_window);\n",
        "test_hostile_owners.SilentOwnersTest.test_an_owner_that_is_stopped_and_goes_on_later_lives_and_serves",
    ),
    Breakage(
        "a piece is never deleted", X11 + "IncomingTransfer.cpp",
        "m_connection.readProperty(m_window, property, Connection::Afterwards::Delete)",
        "m_connection.readProperty(m_window, property, Connection::Afterwards::Keep)",
        "x11_contract_tests:*.ATextOfSeveralMegabytesArrivesWhole",
    ),
    Breakage(
        "an owner that was late is left in the middle", X11 + "IncomingTransfer.cpp",
        "        m_step = Step::Receiving;\n        m_sinceUnwanted.start();\n", "        m_step = Step::Receiving;\n",
        "test_hostile_owners.SilentOwnersTest."
        "test_an_owner_that_has_hung_for_longer_than_anybody_waits_can_still_finish",
    ),
    Breakage(
        "every target is asked for", SELECTION + "CopyReader.cpp",
        "if (m_tries == std::min<std::size_t>(m_plan.candidates.size(), MOST_TRIES)) {",
        "if (m_tries == m_plan.candidates.size()) {",
        "test_hostile_owners.BusyOwnersTest.test_an_owner_of_forty_targets_is_asked_for_three",
    ),
    Breakage(
        "a mark of secrets that never comes counts as none", SELECTION + "CopyReader.cpp",
        "} else if (answer.outcome == Silent || answer.outcome == BrokenOff) {\n        m_tell(Failed{}); // the hint",
        "} else if (false) {\n        m_tell(Failed{}); // the hint",
        "test_hostile_owners.SilentOwnersTest.test_who_does_not_say_whether_it_is_a_secret_is_not_asked_for_it",
    ),
    Breakage(
        "a text is preferred to a picture", SELECTION + "ReadingPlan.cpp",
        "if (!texts.empty() && std::ranges::any_of(*offered, isDocumentType)) {", "if (!texts.empty()) {",
        "x11_contract_tests:*.AnImageArrivesAlsoWhenATextComesWithIt",
    ),
    Breakage(
        "invalid UTF-8 is passed on", SELECTION + "SelectionTypes.cpp",
        "return text::repairedUtf8(text);", "return text;",
        "test_hostile_owners.LyingOwnersTest.test_texts_that_need_mending",
    ),
    Breakage(
        "a secret is read", SELECTION + "SelectionTypes.cpp",
        'hint == "secret"', 'hint == "no secret"',
        "test_owners.OwnersTest.test_a_secret_is_neither_asked_for_nor_kept",
    ),
    Breakage(
        "what was there before a secret is offered again", SELECTION + "SelectionPasteboard.cpp",
        "            m_content = {};\n            m_source = ContentSource::Secret;\n", "            m_source = ContentSource::Foreign;\n",
        "test_owners.OwnersTest.test_a_secret_dies_with_its_owner",
    ),
    Breakage(
        "what was cleared is offered again", X11 + "X11Pasteboard.cpp",
        "} else if (change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {", "} else if (false) {",
        "test_owners.OwnersTest.test_what_was_cleared_on_purpose_stays_cleared",
    ),
    Breakage(
        "nothing is taken over", SELECTION + "SelectionPasteboard.cpp",
        "        m_sinceLoss.start();\n        m_takeOverDelay.start();\n", "        m_sinceLoss.start();\n",
        "test_owners.OwnersTest.test_what_was_copied_outlives_the_program_it_was_copied_from",
    ),
    Breakage(
        "the count moves before the content is there", SELECTION + "SelectionPasteboard.cpp",
        "    m_source = ContentSource::Nothing;\n    m_reader =", "    ++m_changeCount;\n    m_reader =",
        "test_hostile_owners.SilentOwnersTest.test_what_is_promised_and_not_delivered_changes_nothing",
    ),
    Breakage(
        "PRIMARY is not taken for Shift+Insert", X11 + "PrimaryLoan.cpp",
        "m_isBorrowed = m_server.acquire(m_lent, time);", "m_isBorrowed = time == XCB_CURRENT_TIME;",
        "test_paste.PasteTest."
        "test_a_terminal_that_knows_no_other_paste_gets_shift_insert_and_the_primary_selection",
    ),
    Breakage(
        "a hand-over is forgotten when the user copies", SELECTION + "SelectionPasteboard.cpp",
        "    m_countAgain.stop();\n    handleSettled();\n", "    m_countAgain.stop();\n",
        "test_hostile_requestors.HandOverTest.test_programs_that_hand_their_copy_over_before_they_end",
    ),
    Breakage(
        "a text is served under the wrong type", SELECTION + "SelectionOffer.cpp",
        "type == TYPE_TEXT ? TYPE_UTF8_STRING.toByteArray() : type", "TYPE_STRING.toByteArray()",
        "test_hostile_requestors.ConventionsTest.test_every_name_of_a_text",
    ),
    Breakage(
        "STRING is served as UTF-8", SELECTION + "SelectionOffer.cpp",
        "m_latin1 ? m_latin1 : latin1FromUtf8(*m_content.text)", "*m_content.text",
        "test_hostile_requestors.ConventionsTest.test_every_name_of_a_text",
    ),
    Breakage(
        "MULTIPLE hides what has failed", X11 + "SelectionServer.cpp",
        "                request->pairs[i] = XCB_ATOM_NONE;\n", "",
        "test_hostile_requestors.ConventionsTest.test_every_name_of_a_text",
    ),
    Breakage(
        "a picture is converted for each who asks", SELECTION + "SelectionOffer.cpp",
        "    if (isUnderWay) {\n", "    if (false) {\n",
        "test_hostile_requestors.ManyRequestsTest."
        "test_two_hundred_requests_for_a_picture_that_has_to_be_converted",
    ),
    Breakage(
        "copied cells become a picture", SELECTION + "ReadingPlan.cpp",
        "std::ranges::any_of(*offered, isDocumentType)", "std::ranges::none_of(*offered, isImageType)",
        "test_copied_forms.TextOrPictureTest."
        "test_copied_cells_and_words_are_a_text_and_their_picture_is_not_asked_for",
    ),
    Breakage(
        "the next image is asked for instead of the text", SELECTION + "ReadingPlan.cpp",
        "images | std::views::take(1)", "images | std::views::take(2)",
        "test_copied_forms.TextOrPictureTest.test_a_picture_that_does_not_come_is_not_the_end_of_the_text",
    ),
    Breakage(
        "a picture that breaks off gives way to its text", SELECTION + "CopyReader.cpp",
        "        m_tell(Failed{}); // a poorer type must not take its place\n", "        askForNextCandidate();\n",
        "test_copied_forms.TextOrPictureTest.test_a_picture_that_breaks_off_is_not_recorded_as_its_text",
    ),
    Breakage(
        "the text beside a picture is forgotten", SELECTION + "CopyReader.cpp",
        "m_beside.push_back(*m_plan.textBesideImage);", "",
        "test_copied_forms.ServedOnTest.test_text_and_picture_of_one_copy",
    ),
    Breakage(
        "files that were cut are served as copied ones", SELECTION + "SelectionTypes.cpp",
        'bytes.startsWith("cut")', "false",
        "test_copied_forms.ServedOnTest.test_files_that_were_cut_are_not_served_as_copied_ones",
    ),
    Breakage(
        "whoever clears the clipboard is taken to be ending", X11 + "OwnerProcess.cpp",
        "return !m_process || answer(ask())", "return !m_process && answer(ask())",
        "test_copied_forms.ServedOnTest.test_what_a_program_clears_and_lives_on",
    ),
    Breakage(
        "a request that was refused counts as served", X11 + "SelectionServer.cpp",
        "if (succeeded && isForContent) {", "if (isForContent) {",
        "x11_contract_tests:X11Pasteboard.ARefusedRequestIsNotCountedAsServed",
    ),
    Breakage(
        "a key of the keystroke that the user holds is not lifted", X11 + "X11KeystrokePoster.cpp",
        "if (m_keyboard.isDown(key)) {", "if (key == XCB_NONE) {",
        "x11_contract_tests:X11KeystrokePoster.AKeyOfTheKeystrokeThatTheUserHoldsIsPressedAnew",
    ),
    Breakage(
        "what a program clears and lives on comes back", X11 + "X11Pasteboard.cpp",
        "        handleLoss(OwnerLoss::Cleared);\n", "",
        "test_copied_forms.ServedOnTest.test_what_a_program_clears_and_lives_on",
    ),
    Breakage(
        "what a program clears as it ends stays cleared", SELECTION + "TakeOver.cpp",
        "if (m_loss == OwnerLoss::Gone || !isFormerOwnerRunning) {", "if (m_loss == OwnerLoss::Gone) {",
        "test_copied_forms.ServedOnTest.test_what_a_program_clears_as_it_ends",
    ),
    Breakage(
        "nothing is handed to a clipboard manager", X11 + "X11Pasteboard.cpp",
        "        m_handOver.run(manager, m_clipboard.typesToSave());\n", "",
        "test_clipboard_manager.ClipboardManagerTest.test_a_text",
    ),
    Breakage(
        "a clipboard manager is waited for without end", X11 + "ClipboardHandOver.cpp",
        "LONGEST);", "10 * LONGEST);",
        "test_clipboard_manager.ClipboardManagerThatHangsTest.test_the_program_ends_all_the_same",
    ),
    Breakage(
        "what does not fit is sent in one request", X11 + "OutgoingTransfers.cpp",
        "if (bytes.size() > largestPiece()) {", "if (false) {",
        "test_hostile_requestors.LargeRequestsTest.test_requestors_that_die_or_dawdle_in_the_middle",
    ),
    Breakage(
        "the last piece never comes", X11 + "OutgoingTransfers.cpp",
        "    if (size == 0) {\n", "    if (transfer.sent == transfer.bytes.size()) {\n",
        "test_hostile_requestors.LargeRequestsTest.test_requestors_that_die_or_dawdle_in_the_middle",
    ),
    Breakage(
        "strangers may write to the window of the clock", X11 + "Connection.cpp",
        "if (m_timestampHandlers.empty()) {", "if (false) {",
        "test_hostile_requestors.ConventionsTest.test_strangers_that_meddle_with_our_windows",
    ),
    Breakage(
        "a hot key is grabbed without the locks", X11 + "X11HotKeyCenter.cpp",
        "for (const std::uint16_t locks : subsetsOf(m_keyboard.lockModifiers())) {",
        "for (const std::uint16_t locks : subsetsOf(0)) {",
        "test_hotkeys.LocksTest.test_num_lock",
    ),
    Breakage(
        "the paste key comes before the clipboard is ours", SELECTION + "PasteQueue.cpp",
        "        m_pasteboard.offer(changeCount);\n        return;\n", "        break;\n",
        "selection_tests:PasteQueueTest.OffersAgainWhatAnotherProgramHasTakenWithoutACopy",
    ),
    Breakage(
        "a hot key that is held takes the keystroke", X11 + "X11KeystrokePoster.cpp",
        "return m_hotKeys.heldKeys().empty() && ", "return ",
        "test_held_keys.HeldDigitTest.test_the_main_hot_keys_own_key_is_held_while_an_entry_is_chosen",
    ),
    Breakage(
        "a key that is held for ever is not lifted", X11 + "X11KeystrokePoster.cpp",
        "        m_hotKeys.ungrabKeyboard();\n", "",
        "test_held_keys.OneAfterTheOtherTest.test_both_digits_are_held_beyond_every_patience",
    ),
    Breakage(
        "the next paste does not wait for the program to ask", SELECTION + "PasteQueue.cpp",
        "    if (outcome == PasteOutcome::GivenUp || isNextTheSame) {", "    if (true) {",
        "test_held_keys.OneAfterTheOtherTest.test_two_and_three_with_the_modifiers_down",
    ),
    Breakage(
        "PRIMARY is not given back", SELECTION + "PasteQueue.cpp",
        "    m_pasteboard.giveBackPrimary();\n", "",
        "test_paste.PasteTest.test_where_nothing_was_selected_nothing_is_afterwards",
    ),
    Breakage(
        "an older copy that is still on its way undoes a write", X11 + "X11Pasteboard.cpp",
        "    if (isWriteOnItsWay()) {", "    if (false) {",
        "x11_contract_tests:*.AWriteWinsOverACopyThatIsOlderAndStillOnItsWay",
    ),
    Breakage(
        "who owns our content again has copied", SELECTION + "SelectionPasteboard.cpp",
        "    if (written && isRecent) {", "    if (false) {",
        "test_paste_targets.SharedClipboardTest.test_a_paste_of_the_popover",
    ),
    Breakage(
        "sway is not asked for the focus over a full screen", "platform/wayland/SwayWindowSystem.cpp",
        "    if (wishOf(window) == nullptr) { // the others", "    if (false) { // the others",
        "sway_windows_tests:*.IsTakenFromItAloneByAWindowThatIsBroughtToTheFront/*",
    ),
)
