#pragma once

/**
 * The dark theme: one style sheet text for each kind of widget.
 *
 * The texts are taken letter for letter, slips included (the single colon of "QTableView:item",
 * the selector "QScrollBar::up-down:vertical"): they decide what the style sheet parser keeps, and so
 * how the program looks.
 */
namespace StyleSheet {

/** Base of the dark theme; everything without a sheet of its own inherits it. */
inline constexpr char centralWidget[] = "QWidget {color: #cccccc; background-color: #202020;}";

/** Labels on the panels. */
inline constexpr char label[] = "QLabel {background-color:transparent; color:#cccccc} ";

/** The panels. */
inline constexpr char groupBox[] = "QGroupBox {background-color:#303030; color:white;border: 0px solid;} "
                                   "QGroupBox::title {background-color:#303030; color:#909090;} ";

/** The Live Buttons and the pads. */
inline constexpr char listView[] =
    "QTableView {font: normal 12px 'Arial' ;outline: 0; gridline-color: #252525; background:black;"
    " border: 0px;}"
    "QTableView::item{background:black; border: 1px solid #404040 ;} "
    "QTableView:item:selected{color: white;background:#404040; border: 1px solid #404040 ;}"
    "QTableView:item:focus{background:black; border: 1px solid #404040 ;} "
    "QTableView:item:focus:selected{background:#404040; border: 1px solid #404040 ;} "
    "QTableView:item:hover{background:#202020; border: 1px solid #404040;}"
    "QTableView:item:hover:selected{background:#404040; border: 1px solid #404040;} "
    "QTableView::indicator:checked {image:url(:/icons/Images/checkbox.png);"
    " background-color: #202020; color:#aaaaaa; border:1px solid #505050;}"
    "QTableView::indicator:unchecked {background-color: #202020; color:#aaaaaa;"
    " border:1px solid #505050;}"
    "QToolTip {background:#202020;color:white;border: 1px solid #808080;}";

/** The device grid; its cells are painted by the delegate. */
inline constexpr char controllerGrid[] =
    "QTableView {font: normal 12px 'Arial' ;outline: 0; gridline-color: #252525; background:black;"
    " border: 0px;}"
    "QToolTip {background:#202020;color:white;border: 1px solid #808080;}";

/** Vertical scroll bars of the tables. */
inline constexpr char scrollBar[] =
    "QScrollBar:vertical {border: 1px solid #505050; background: #202020; width: 20px;"
    " margin: 0px 0 0px 0;}"
    "QScrollBar::handle:vertical {border: 0px; background: #707070; min-height:15px; }"
    "QScrollBar::add-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::sub-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::up-arrow:vertical {width: 0px; height: 0px; } "
    "QScrollBar::down-arrow:vertical {width: 0px; height: 0px;}"
    "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical {background: none;}";

/** Page name and bank name. The stray ";" at the end belongs to the text. */
inline constexpr char lineEdit[] =
    "QLineEdit {color: #cccccc; background-color: black; selection-color: white;"
    " selection-background-color: #606060; border: 1px solid #606060;}"
    "QLineEdit:focus {border: 1px solid #aaaaaa};";

/** Output mode and pad layout. */
inline constexpr char radioButton[] =
    "QRadioButton {color: #cccccc; background-color: #303030; border: 0px;}";

/** All combo boxes, with the scroll bar of their popups. */
inline constexpr char comboBox[] =
    "QComboBox {color: #bbbbbb; border: 1px solid #707070; padding: 2px 0px 2px 10px; }"
    "QComboBox:hover {color: #bbbbbb; border: 1px solid #909090; padding: 2px 0px 2px 10px; }"
    "QComboBox:disabled {color: #707070; border: 1px solid #404040; padding: 0px 0px 0px 10px;}"
    "QComboBox::drop-down {image: url(:/icons/Images/arrowdown.png); width:20px;padding: 0px;"
    " background-color:#505050; border-left-width: 1px; border-left-color: #707070;"
    " border-left-style: solid;}"
    "QComboBox QAbstractItemView {padding: 3px 0px 3px 0px; border: 1px solid darkgray;"
    " selection-background-color: #505050;}"
    "QScrollBar:vertical {border: 1px solid #505050; background: #202020; width: 20px;"
    " margin: 0px 0 0px 0;}"
    "QScrollBar::handle:vertical {border: 0px; background: #707070; min-height:15px; }"
    "QScrollBar::add-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::sub-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::up-down:vertical {width: 0px; height: 0px; }"
    "QScrollBar::up-arrow:vertical {width: 0px; height: 0px; }  "
    "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical {background: none;}";

/** Push buttons. */
inline constexpr char pushButton[] =
    "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
    "QPushButton:hover {color: #ffffff; background-color: #404040;border: 1px solid #606060;}"
    "QToolTip {background:#202020;color:white;border: 1px solid #808080;}";

/** Menus of the menu bar and context menus. */
inline constexpr char menu[] = "QMenu {padding: 2px; background-color: black; border:1px solid #505050;}"
                               "QMenu::item{color:#aaaaaa; background-color: #101010;}"
                               "QMenu::item:selected{color:white;background: #404040;}"
                               "QMenu::separator{height: 1px; margin: 5px; background: #909090; }";

/** The menu bar. */
inline constexpr char menuBar[] = "QMenuBar {margin: 0px;spacing: 3px; padding:5px; background-color: black;"
                                  " border:1px solid #505050;}"
                                  "QMenuBar::item{color:#aaaaaa; background-color: #101010;}"
                                  "QMenuBar::item:selected{color:white;background: #404040;}";

/** Questions and notices. */
inline constexpr char messageBox[] =
    "QMessageBox {background-color:#202020; color:#cccccc ; border: 1px solid #505050;} "
    "QMessageBox QLabel {min-width: 360px; color:white;}"
    "QMessageBox QPushButton {width: 70; height:20; color: #cccccc; background-color: #303030;"
    "border: 1px solid #505050;}"
    "QMessageBox QPushButton:hover {width: 70; height:20; color: #ffffff; background-color: #404040;"
    "border: 1px solid #606060;}";

/** The About dialog. */
inline constexpr char aboutDialog[] =
    "QDialog {border:1px solid #606060; background-color: black; }"
    "QLabel {color: #aaaaaa; background-color:transparent;}"
    "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
    "QPushButton:hover {color: #ffffff; background-color: #404040;border: 1px solid #606060;}";

} // namespace StyleSheet
