#include "support/boxes.h"
#include "support/devices.h"
#include "support/texts.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolTip>

namespace {

// The theme, written down a second time: one text for each kind of widget, slips and blanks included.

const char Base[] = "QWidget {color: #cccccc; background-color: #202020;}";

const char Label[] = "QLabel {background-color:transparent; color:#cccccc} ";

const char Panel[] = "QGroupBox {background-color:#303030; color:white;border: 0px solid;}"
                     " QGroupBox::title {background-color:#303030; color:#909090;} ";

const char ListTable[] =
    "QTableView {font: normal 12px 'Arial' ;outline: 0; gridline-color: #252525;"
    " background:black; border: 0px;}"
    "QTableView::item{background:black; border: 1px solid #404040 ;}"
    " QTableView:item:selected{color: white;background:#404040; border: 1px solid #404040 ;}"
    "QTableView:item:focus{background:black; border: 1px solid #404040 ;}"
    " QTableView:item:focus:selected{background:#404040; border: 1px solid #404040 ;}"
    " QTableView:item:hover{background:#202020; border: 1px solid #404040;}"
    "QTableView:item:hover:selected{background:#404040; border: 1px solid #404040;}"
    " QTableView::indicator:checked {image:url(:/icons/Images/checkbox.png); background-color:"
    " #202020; color:#aaaaaa; border:1px solid #505050;}"
    "QTableView::indicator:unchecked {background-color: #202020; color:#aaaaaa; border:1px"
    " solid #505050;}"
    "QToolTip {background:#202020;color:white;border: 1px solid #808080;}";

const char GridTable[] = "QTableView {font: normal 12px 'Arial' ;outline: 0; gridline-color: #252525;"
                         " background:black; border: 0px;}"
                         "QToolTip {background:#202020;color:white;border: 1px solid #808080;}";

const char TableScrollBar[] =
    "QScrollBar:vertical {border: 1px solid #505050; background: #202020; width: 20px; margin:"
    " 0px 0 0px 0;}"
    "QScrollBar::handle:vertical {border: 0px; background: #707070; min-height:15px; }"
    "QScrollBar::add-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::sub-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::up-arrow:vertical {width: 0px; height: 0px; }"
    " QScrollBar::down-arrow:vertical {width: 0px; height: 0px;}"
    "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical {background: none;}";

const char Edit[] = "QLineEdit {color: #cccccc; background-color: black; selection-color: white;"
                    " selection-background-color: #606060; border: 1px solid #606060;}"
                    "QLineEdit:focus {border: 1px solid #aaaaaa};";

const char Radio[] = "QRadioButton {color: #cccccc; background-color: #303030; border: 0px;}";

const char Combo[] =
    "QComboBox {color: #bbbbbb; border: 1px solid #707070; padding: 2px 0px 2px 10px; }"
    "QComboBox:hover {color: #bbbbbb; border: 1px solid #909090; padding: 2px 0px 2px 10px; }"
    "QComboBox:disabled {color: #707070; border: 1px solid #404040; padding: 0px 0px 0px 10px;}"
    "QComboBox::drop-down {image: url(:/icons/Images/arrowdown.png); width:20px;padding: 0px;"
    " background-color:#505050; border-left-width: 1px; border-left-color: #707070;"
    " border-left-style: solid;}"
    "QComboBox QAbstractItemView {padding: 3px 0px 3px 0px; border: 1px solid darkgray;"
    " selection-background-color: #505050;}"
    "QScrollBar:vertical {border: 1px solid #505050; background: #202020; width: 20px; margin:"
    " 0px 0 0px 0;}"
    "QScrollBar::handle:vertical {border: 0px; background: #707070; min-height:15px; }"
    "QScrollBar::add-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::sub-line:vertical {border: 0px; height: 0px;}"
    "QScrollBar::up-down:vertical {width: 0px; height: 0px; }"
    "QScrollBar::up-arrow:vertical {width: 0px; height: 0px; }"
    "  QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical {background: none;}";

const char Button[] =
    "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
    "QPushButton:hover {color: #ffffff; background-color: #404040;border: 1px solid #606060;}"
    "QToolTip {background:#202020;color:white;border: 1px solid #808080;}";

const char Menu[] = "QMenu {padding: 2px; background-color: black; border:1px solid #505050;}"
                    "QMenu::item{color:#aaaaaa; background-color: #101010;}"
                    "QMenu::item:selected{color:white;background: #404040;}"
                    "QMenu::separator{height: 1px; margin: 5px; background: #909090; }";

const char Bar[] = "QMenuBar {margin: 0px;spacing: 3px; padding:5px; background-color: black; border:1px"
                   " solid #505050;}"
                   "QMenuBar::item{color:#aaaaaa; background-color: #101010;}"
                   "QMenuBar::item:selected{color:white;background: #404040;}";

const char MessageBoxes[] =
    "QMessageBox {background-color:#202020; color:#cccccc ; border: 1px solid #505050;}"
    " QMessageBox QLabel {min-width: 360px; color:white;}"
    "QMessageBox QPushButton {width: 70; height:20; color: #cccccc; background-color:"
    " #303030;border: 1px solid #505050;}"
    "QMessageBox QPushButton:hover {width: 70; height:20; color: #ffffff; background-color:"
    " #404040;border: 1px solid #606060;}";

/** All objects with a sheet of their own; a scroll bar goes by the name of its table. */
const QVector<QPair<QString, QString>> Styled = {
    {Combo, "bankcombo combobox mididevices devicescombo combo_offcolor combo_oncolor"},
    {Radio, "radio_outputmidi radio_outputpage radioButton_16pads radioButton_8pads"},
    {Menu, "menuPage menuHelp"},
    {Bar, "menuBar"},
    {Button, "pushButton_2 cleanmidi_button cleanpads_button loadini"},
    {Base, "centralWidget"},
    {Edit, "padsname bankname"},
    {Label,
     "label_padname label_3 label label_2 label_5 label_6 label_7 bank_label bank_label_3 label_9 label_10"},
    {Panel, "groupBox groupBox_2 groupBox_3 groupBox_4 groupBox_midis groupBox_pads groupBox_controller"},
    {ListTable, "vdjlistview dmxlistview"},
    {GridTable, "tablecontroller"},
    {TableScrollBar, "vertical/vdjlistview vertical/dmxlistview vertical/tablecontroller"},
};

QString nameOf(const QWidget *widget)
{
    const auto *bar = qobject_cast<const QScrollBar *>(widget);
    if (!bar)
        return widget->objectName();
    const QString direction = bar->orientation() == Qt::Vertical ? "vertical/" : "horizontal/";
    return direction + bar->parentWidget()->parentWidget()->objectName();
}

/** The sheets of all widgets that have one. */
QMap<QString, QString> sheetsOf(const QWidget &window)
{
    QMap<QString, QString> sheets;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->styleSheet().isEmpty())
            sheets.insert(nameOf(widget), widget->styleSheet());
    }
    return sheets;
}

/** The widgets of some classes whose font is of another family. */
QString otherFonts(const QWidget &window, const QString &family)
{
    QStringList names;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const bool hasText = widget->inherits("QLabel") || widget->inherits("QAbstractButton")
                             || widget->inherits("QLineEdit") || widget->inherits("QComboBox");
        if (hasText && !widget->objectName().isEmpty() && widget->font().family() != family)
            names += widget->objectName();
    }
    return names.join(' ');
}

QWidget *toolTipLabel()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QTipLabel") && widget->isVisible())
            return widget;
    }
    return nullptr;
}

/** Captions in sight that are wider than their place, with the pixels that they lack. */
QStringList cutTexts(Workspace &space)
{
    QStringList cut;
    const auto measure = [&cut](const QWidget *widget, const QString &text, int needed, int given) {
        if (widget->isVisible() && needed > given)
            cut += QString("%1 \"%2\" lacks %3").arg(widget->objectName(), text).arg(needed - given);
    };
    const auto widthOf = [](const QWidget *widget, const QString &text) {
        return widget->fontMetrics().horizontalAdvance(text);
    };
    for (const QLabel *label : space.window().findChildren<QLabel *>())
        measure(label, label->text(), widthOf(label, label->text()), label->width());
    for (const QRadioButton *radio : space.window().findChildren<QRadioButton *>())
        measure(radio, radio->text(), radio->sizeHint().width(), radio->width());
    for (const QPushButton *button : space.window().findChildren<QPushButton *>())
        measure(button, button->text(), widthOf(button, button->text()), button->width() - 4);
    const QString key = Texts::keyLabel(11, 9); // the longest of the grid, behind a swatch
    measure(space.gridView(), key, widthOf(space.gridView(), key), 95 - 30);
    return cut;
}

} // namespace

/** The dark theme: which sheet lies on which widget, to the letter, and that it is seen. */
class TestStyles final : public QObject
{
    Q_OBJECT

private slots:
    void sheets();
    void toolTips();
    void setAgain();
    void messageBoxes();

    void fontsStay();
    void textFits_data();
    void textFits();
    void pixel_data();
    void pixel();
    void endOfColorsLabelIsSeen();
    void cellToolTipsAreDark();
};

void TestStyles::sheets()
{
    QMap<QString, QString> expected;
    for (const auto &[sheet, names] : Styled) {
        for (const QString &name : names.split(' '))
            expected.insert(name, sheet);
    }
    Workspace space;
    const QMap<QString, QString> found = sheetsOf(space.window());
    for (auto sheet = expected.cbegin(); sheet != expected.cend(); ++sheet)
        QVERIFY2(found.value(sheet.key()) == sheet.value(),
                 qPrintable(sheet.key() + ": " + found.value(sheet.key())));
    QCOMPARE(found.keys(), expected.keys());
    QVERIFY(space.window().styleSheet().isEmpty());
    QVERIFY(qApp->styleSheet().isEmpty());
}

void TestStyles::toolTips()
{
    Workspace space;
    QStringList tips;
    for (const QWidget *widget : space.window().findChildren<QWidget *>()) {
        if (!widget->toolTip().isEmpty())
            tips += widget->objectName() + ": " + widget->toolTip();
    }
    tips.sort();
    QCOMPARE(tips, (QStringList{"cleanmidi_button: Clean content from All Buttons",
                                "cleanpads_button: Clean content from All Pads"}));
}

void TestStyles::setAgain()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    const QStringList before = space.snapshot();
    const QMap<QString, QString> sheets = sheetsOf(space.window());
    for (QWidget *widget : space.window().findChildren<QWidget *>())
        widget->setStyleSheet(QString());
    QVERIFY(space.call("setstyles"));
    QVERIFY(space.call("setstyles"));
    QCOMPARE(sheetsOf(space.window()), sheets);
    QCOMPARE(space.snapshot(), before);
}

void TestStyles::messageBoxes()
{
    Workspace space;
    space.window();
    QString sheet;
    QTimer::singleShot(0, qApp, [&sheet] {
        if (const QWidget *box = QApplication::activeModalWidget())
            sheet = box->styleSheet();
    });
    space.dialogs.expect(Boxes::SaveWithoutShow);
    space.trigger("actionSave_2");
    QCOMPARE(sheet, QString(MessageBoxes));
    QCOMPARE(space.dialogs.faults(), QString());
}

/** A widget with a sheet of its own keeps the window's font only while the central widget is styled before it. */
void TestStyles::fontsStay()
{
    Workspace space;
    auto *devices = space.find<QComboBox>("devicescombo");
    QCOMPARE(otherFonts(space.window(), "Arial"), QString());
    QCOMPARE(space.find<QWidget>("padsname")->font().pointSize(), space.window().font().pointSize());
    QVERIFY(space.click("radio_outputmidi"));
    devices->setCurrentIndex(Devices::Pro); // without a palette
    devices->setCurrentIndex(Devices::Akai);
    QCOMPARE(otherFonts(space.window(), "Arial"), QString());
    QVERIFY(space.call("setstyles"));
    QCOMPARE(otherFonts(space.window(), "Arial"), QString());
}

void TestStyles::textFits_data()
{
    QTest::addColumn<int>("desktopPoints");
    QTest::newRow("9 points") << 9;
    QTest::newRow("11 points") << 11;
}

/** Under CTest also at other scales, which round letters otherwise. */
void TestStyles::textFits()
{
    QFETCH(const int, desktopPoints);
    const QFont before = QApplication::font();
    QFont desktop = before;
    desktop.setPointSize(desktopPoints);
    QApplication::setFont(desktop);
    Workspace space;
    QApplication::setFont(before);
    QVERIFY(space.window().isVisible());

    QStringList cut = cutTexts(space);
    QVERIFY(space.click("radio_outputmidi"));
    cut += cutTexts(space);
    space.find<QComboBox>("devicescombo")->setCurrentIndex(Devices::Mk2); // one without a palette
    cut += cutTexts(space);
    QVERIFY(space.click("radio_outputpage"));
    cut += cutTexts(space);
    cut.removeDuplicates();
    QCOMPARE(cut.join("; "), QString());
}

void TestStyles::pixel_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QColor>("color");
    const auto row = [](const char *name, const char *object, const QPoint &point, const char *color) {
        QTest::newRow(name) << QByteArray(object) << point << QColor(color);
    };
    row("central widget", "centralWidget", {3, 3}, "#202020");
    row("panel", "groupBox_2", {3, 430}, "#303030");
    row("table without rows", "dmxlistview", {120, 120}, "black");
    row("border of a pad", "vdjlistview", {100, 0}, "#404040");
    row("button", "pushButton_2", {4, 4}, "#303030");
    row("border of a button", "pushButton_2", {60, 0}, "#505050");
    row("line edit", "padsname", {185, 5}, "black");
    row("border of a line edit", "padsname", {90, 0}, "#606060");
    row("border of a combo box", "bankcombo", {10, 0}, "#707070");
    row("menu bar", "menuBar", {600, 10}, "black");
}

void TestStyles::pixel()
{
    QFETCH(const QByteArray, object);
    QFETCH(const QPoint, point);
    QFETCH(const QColor, color);
    Workspace space;
    const QImage image = space.find<QWidget>(object)->grab().toImage();
    QCOMPARE(image.pixelColor(point).name(), color.name());
}

void TestStyles::endOfColorsLabelIsSeen()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    auto *label = space.find<QLabel>("label_10");
    const auto *frame = space.find<QWidget>("groupBox_colors");
    QVERIFY(frame->isVisible());
    const int end = label->x() + label->fontMetrics().horizontalAdvance(label->text());
    QVERIFY(end > frame->x()); // the frame lies over the end of the text, and on top of it

    const auto *panel = space.find<QWidget>("groupBox_midis");
    const int off = frame->x() + space.find<QLabel>("label")->x();
    for (int x = label->x(); x < qMin(end, off); ++x)
        QCOMPARE(panel->childAt(x, 20), label);
    for (const char *name : {"label", "combo_offcolor", "label_2", "combo_oncolor"}) {
        const QRect place = space.find<QWidget>(name)->geometry().translated(frame->pos());
        QCOMPARE(panel->childAt(place.center())->objectName(), QString(name));
    }
}

void TestStyles::cellToolTipsAreDark()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow() && space.put("0@0,0"), qPrintable(space.dialogs.faults()));
    for (QTableView *view : {space.dmxView(), space.padsView(), space.gridView()}) {
        const bool isGrid = view == space.gridView();
        QVERIFY(!isGrid || (space.click("radio_outputmidi") && space.put("0@2,2")));
        const QPoint point = view->visualRect(Workspace::cellAt(view, isGrid ? "2,2" : "0,0")).center();
        QHelpEvent help(QEvent::ToolTip, point, view->viewport()->mapToGlobal(point));
        QToolTip::hideText();
        QTRY_VERIFY(!toolTipLabel());
        QCoreApplication::sendEvent(view->viewport(), &help);
        QTRY_VERIFY(toolTipLabel());
        const QImage image = toolTipLabel()->grab().toImage();
        QCOMPARE(image.pixelColor(0, 0).name(), QString("#808080"));
        QCOMPARE(image.pixelColor(image.width() / 2, image.height() - 1).name(), QString("#808080"));
        QCOMPARE(image.pixelColor(1, 1).name(), QString("#202020"));
    }
}

QTEST_MAIN(TestStyles)
#include "test_styles.moc"
