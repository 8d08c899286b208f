# The tests of calls, values and order, which are built here on our headers and by ./check-macos on the system's.
set(ZAMBER_MACOS_RECORDED_TESTS
    ApplicationTest.mm
    KeysTest.mm
    LookTest.mm
    PasteboardTest.mm
    PopoverTest.mm
    PreferencesTest.mm
    SchedulerTest.mm
    ServicesTest.mm
    StatusItemTest.mm
    WorkspaceTest.mm)
list(TRANSFORM ZAMBER_MACOS_RECORDED_TESTS PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
