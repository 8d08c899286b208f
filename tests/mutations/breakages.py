# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What could be broken in the X11 adapter by one line, and the test that has to notice."""

from dataclasses import dataclass

X11 = "platform/x11/"


@dataclass(frozen=True)
class Breakage:
    name: str
    file: str
    text: str  # occurs in the file exactly once
    replacement: str
    test: str  # of tests/desktop as unittest names it, or "contract:" and a filter of the contract tests


BREAKAGES = (
    Breakage(
        "our own write is read again", X11 + "X11Pasteboard.cpp",
        "if (change.owner == m_clipboard.window()) {", "if (false) {",
        "contract:*.OurOwnWriteMovesTheCountInsideTheCallAndNotLater",
    ),
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
        "m_connection.readProperty(m_window, m_connection.atom(Atom::ZamberAnswer), Connection::Afterwards::Delete)",
        "m_connection.readProperty(m_window, m_connection.atom(Atom::ZamberAnswer), Connection::Afterwards::Keep)",
        "contract:*.ATextOfSeveralMegabytesArrivesWhole",
    ),
    Breakage(
        "an owner that was late is left in the middle", X11 + "IncomingTransfer.cpp",
        "    m_step = Step::Receiving;\n    m_age.restart();\n", "    m_step = Step::Receiving;\n",
        "test_hostile_owners.SilentOwnersTest."
        "test_an_owner_that_has_hung_for_longer_than_anybody_waits_can_still_finish",
    ),
    Breakage(
        "every target is asked for", X11 + "SelectionReader.cpp",
        "if (m_candidates.empty() || m_requests == MOST_REQUESTS) {", "if (m_candidates.empty()) {",
        "test_hostile_owners.BusyOwnersTest.test_an_owner_of_forty_targets_is_asked_for_three",
    ),
    Breakage(
        "a mark of secrets that never comes counts as none", X11 + "SelectionReader.cpp",
        "} else if (m_hasHung) {", "} else if (false) {",
        "test_hostile_owners.SilentOwnersTest.test_who_does_not_say_whether_it_is_a_secret_is_not_asked_for_it",
    ),
    Breakage(
        "a text is preferred to a picture", X11 + "SelectionProperty.cpp",
        "    addOffered(IMAGES);\n    addOffered(TEXTS);\n", "    addOffered(TEXTS);\n    addOffered(IMAGES);\n",
        "contract:*.AnImageArrivesAlsoWhenATextComesWithIt",
    ),
    Breakage(
        "invalid UTF-8 is passed on", X11 + "SelectionProperty.cpp",
        "return repairedUtf8(answer.bytes);", "return answer.bytes;",
        "test_hostile_owners.LyingOwnersTest.test_texts_that_need_mending",
    ),
    Breakage(
        "a secret is read", X11 + "SelectionProperty.cpp",
        'hint.bytes == "secret"', 'hint.bytes == "no secret"',
        "test_owners.OwnersTest.test_a_secret_is_neither_asked_for_nor_kept",
    ),
    Breakage(
        "what was there before a secret is offered again", X11 + "X11Pasteboard.cpp",
        "            m_content = {};\n            m_source = Source::Secret;\n", "            m_source = Source::Foreign;\n",
        "test_owners.OwnersTest.test_a_secret_dies_with_its_owner",
    ),
    Breakage(
        "what was cleared is offered again", X11 + "X11Pasteboard.cpp",
        "} else if (change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {", "} else if (false) {",
        "test_owners.OwnersTest.test_what_was_cleared_on_purpose_stays_cleared",
    ),
    Breakage(
        "nothing is taken over", X11 + "X11Pasteboard.cpp",
        "        m_takeOverDelay.start();\n", "",
        "test_owners.OwnersTest.test_what_was_copied_outlives_the_program_it_was_copied_from",
    ),
    Breakage(
        "the count moves before the content is there", X11 + "X11Pasteboard.cpp",
        "    m_source = Source::Nothing;\n    m_reader =", "    ++m_changeCount;\n    m_reader =",
        "test_hostile_owners.SilentOwnersTest.test_what_is_promised_and_not_delivered_changes_nothing",
    ),
    Breakage(
        "PRIMARY is not taken for Shift+Insert", X11 + "PrimaryLoan.cpp",
        "m_isBorrowed = m_server.acquire(m_lent, time);", "m_isBorrowed = time == XCB_CURRENT_TIME;",
        "test_paste.PasteTest."
        "test_a_terminal_that_knows_no_other_paste_gets_shift_insert_and_the_primary_selection",
    ),
    Breakage(
        "a hand-over is forgotten when the user copies", X11 + "X11Pasteboard.cpp",
        "    m_countAgain.stop();\n    answerSavers();\n", "    m_countAgain.stop();\n",
        "test_hostile_requestors.HandOverTest.test_programs_that_hand_their_copy_over_before_they_end",
    ),
    Breakage(
        "a text is served under the wrong type", X11 + "SelectionServer.cpp",
        "m_transfers.send(destination, m_connection.atom(Atom::Utf8String), *m_content.text);",
        "m_transfers.send(destination, XCB_ATOM_STRING, *m_content.text);",
        "test_hostile_requestors.ConventionsTest.test_every_name_of_a_text",
    ),
    Breakage(
        "STRING is served as UTF-8", X11 + "SelectionServer.cpp",
        "m_latin1 = latin1FromUtf8(*m_content.text);", "m_latin1 = *m_content.text;",
        "test_hostile_requestors.ConventionsTest.test_every_name_of_a_text",
    ),
    Breakage(
        "MULTIPLE hides what has failed", X11 + "SelectionServer.cpp",
        "                request->pairs[i] = XCB_ATOM_NONE;\n", "",
        "test_hostile_requestors.ConventionsTest.test_every_name_of_a_text",
    ),
    Breakage(
        "a picture is converted for each who asks", X11 + "SelectionServer.cpp",
        "    if (conversion) {\n", "    if (false) {\n",
        "test_hostile_requestors.ManyRequestsTest."
        "test_two_hundred_requests_for_a_picture_that_has_to_be_converted",
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
        "the paste key comes before the clipboard is ours", X11 + "X11KeystrokePoster.cpp",
        "        m_pasteboard.offer(changeCount);\n        return;\n", "        break;\n",
        "contract:*KeystrokePosterContract*",
    ),
    Breakage(
        "a hot key that is held takes the keystroke", X11 + "X11KeystrokePoster.cpp",
        "if (m_hotKeys.heldKeys().empty() && ", "if (",
        "test_held_keys.HeldDigitTest.test_the_modifiers_go_first",
    ),
    Breakage(
        "a key that is held for ever is not lifted", X11 + "X11KeystrokePoster.cpp",
        "        m_hotKeys.ungrabKeyboard();\n", "",
        "test_held_keys.HeldDigitTest.test_held_beyond_every_patience_the_digit_is_lifted",
    ),
    Breakage(
        "the next paste does not wait for the program to ask", X11 + "X11KeystrokePoster.cpp",
        "    if (outcome == PasteOutcome::GivenUp || isNextTheSame) {", "    if (true) {",
        "test_held_keys.OneAfterTheOtherTest.test_two_and_three_with_the_modifiers_down",
    ),
    Breakage(
        "PRIMARY is not given back", X11 + "X11KeystrokePoster.cpp",
        "    m_pasteboard.giveBackPrimary();\n", "",
        "test_paste.PasteTest.test_where_nothing_was_selected_nothing_is_afterwards",
    ),
    Breakage(
        "an older copy that is still on its way undoes a write", X11 + "X11Pasteboard.cpp",
        "    if (m_isAcquiring && m_source == Source::Ourselves && !m_isTakingOver) {", "    if (false) {",
        "contract:*.AWriteWinsOverACopyThatIsOlderAndStillOnItsWay",
    ),
    Breakage(
        "who owns our content again has copied", X11 + "X11Pasteboard.cpp",
        "    if (written && isRecent) {", "    if (false) {",
        "test_paste.SharedClipboardTest.test_a_paste_of_the_popover",
    ),
)
