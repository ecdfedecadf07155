# The whole user interface: panels and windows.
plurimo_folder(resources
  LINKS Qt6::Core
  SOURCES Resources.cpp
    resources.qrc)
set_target_properties(plurimo_resources PROPERTIES AUTORCC ON)

# The .ts files are kept by tools/update-translations; the build makes the files that the program loads.
plurimo_folder(languages
  LINKS Qt6::Core
  SOURCES Languages.cpp)
file(GLOB PLURIMO_TRANSLATIONS CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/languages/*.ts")
qt_add_lrelease(plurimo_languages TS_FILES ${PLURIMO_TRANSLATIONS} QM_FILES_OUTPUT_VARIABLE PLURIMO_LANGUAGE_FILES)
set(names ${PLURIMO_LANGUAGE_FILES})
list(TRANSFORM names REPLACE "^.*/(.*)$" "<file>\\1</file>")
list(JOIN names "" names)
file(CONFIGURE OUTPUT languages.qrc CONTENT "<RCC><qresource prefix='/languages'>@names@</qresource></RCC>\n" @ONLY)
add_custom_command(OUTPUT languages_qrc.cpp
  COMMAND Qt6::rcc --name languages "${CMAKE_CURRENT_BINARY_DIR}/languages.qrc" -o languages_qrc.cpp
  DEPENDS "${CMAKE_CURRENT_BINARY_DIR}/languages.qrc" ${PLURIMO_LANGUAGE_FILES}
  VERBATIM)
target_sources(plurimo_languages PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/languages_qrc.cpp")

plurimo_folder(ui
  LINKS Qt6::Widgets
  SOURCES Contrast.cpp
    CoreWords.cpp
    EdgeStyle.cpp
    ElidedLabel.cpp
    FittingFont.cpp
    Mirrored.cpp
    Palettes.cpp
    ProgressIndicator.cpp
    QuietComboBox.cpp
    ShownText.cpp
    SystemColor.cpp)
set_target_properties(plurimo_ui PROPERTIES AUTOMOC ON)

plurimo_folder(filetree/view WIDGETS
  LINKS Qt6::Widgets
  SOURCES FileListViewController.cpp
    FileTreeView.cpp
    ImageAndTextCell.cpp
    OutlineViewDataSource.cpp)

plurimo_folder(log/view WIDGETS
  LINKS Qt6::Widgets
  SOURCES LogDataWindows.cpp
    LogFileDataSource.cpp)

plurimo_folder(version/view WIDGETS
  LINKS Qt6::Widgets Qt6::Network Qt6::Svg
  SOURCES Banner.cpp
    Hyperlink.cpp
    $<IF:$<BOOL:${PLURIMO_VERSION_CHECK}>,WebFetch.cpp,NoWebFetch.cpp>
    Obsidio.cpp
    VersionWindow.cpp)

plurimo_folder(panels WIDGETS
  LINKS Qt6::Widgets
  SOURCES BayRunView.cpp
    CopyActionViewController.cpp
    DiskInfoLayout.cpp
    DiskInfoViewController.cpp
    NoEnclosureView.cpp
    ProgressBarViewController.cpp
    TBDeviceViewController.cpp
    VolumeNameField.cpp)

plurimo_folder(app WIDGETS
  LINKS Qt6::Widgets Qt6::Network
  SOURCES BaySetupSheet.cpp
    Certificate.cpp
    LineTile.cpp
    LineWindow.cpp
    MainMenu.cpp
    MainWindow.cpp
    MainWindowDisks.cpp
    MainWindowGoOn.cpp
    MainWindowJobs.cpp
    MainWindowMonitoring.cpp
    MainWindowProgress.cpp
    MainWindowRunControl.cpp
    MainWindowRunDisplay.cpp
    MainWindowSelection.cpp
    MainWindowSetup.cpp
    MainWindowStart.cpp
    OrvanaAppDelegate.cpp
    RunOptionsSheet.cpp
    RunReportWindow.cpp
    RunWords.cpp
    ScriptBaySetup.cpp
    ScriptFile.cpp
    ScriptPictures.cpp
    ScriptRunner.cpp
    SetupWriter.cpp
    Sheets.cpp
    SingleInstance.cpp
    VerifyWindow.cpp
    VolumeNotifications.cpp)

add_executable(orvana-plurimo app/main.cpp)
target_link_libraries(orvana-plurimo PRIVATE plurimo_app CLI11::CLI11)
plurimo_program(orvana-plurimo)

# For people who work on the panels; not installed.
add_executable(plurimo-gallery gallery/main.cpp)
target_link_libraries(plurimo-gallery PRIVATE
  plurimo_foundation_qt plurimo_platform_hosts plurimo_panels plurimo_filetree_view plurimo_resources)
plurimo_program(plurimo-gallery)
