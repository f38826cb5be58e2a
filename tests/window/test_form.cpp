#include "ui_mainwindow.h"

#include <QtTest>

#include <array>
#include <cstring>

namespace {

/** One widget of the form, as a person wrote it down. */
struct FormWidget
{
    const char *name;
    const char *type;
    const char *parent;
    QRect rect; ///< rectangle in the parent; null where the form gives none
    int points; ///< size of a font of its own; 0 where the font is the parent's
    const char *text;
};

/** All widgets, in the order in which they come into being; later ones lie on top. */
const QVector<FormWidget> Widgets = {
    {"centralWidget", "QWidget", "MainWindow", {}, 0, ""},
    {"label_4",
     "QLabel",
     "centralWidget",
     {10, 5, 621, 20},
     0,
     "Create a VirtualDJ Pads Page from The Lighting Controller DMX (Sweetlight, ShowXPress, QuickDMX)"},
    {"groupBox_2", "QGroupBox", "centralWidget", {10, 30, 271, 441}, 9, "DMX Software"},
    {"label_6", "QLabel", "groupBox_2", {10, 70, 131, 16}, 9, "Live Pages"},
    {"dmxlistview", "QTableView", "groupBox_2", {10, 150, 241, 240}, 0, ""},
    {"label_5", "QLabel", "groupBox_2", {10, 130, 131, 16}, 9, "Live Buttons"},
    {"combobox", "QComboBox", "groupBox_2", {10, 90, 241, 27}, 10, ""},
    {"loadini", "QPushButton", "groupBox_2", {120, 30, 131, 31}, 10, "Load DMX Show"},
    {"groupBox_3", "QGroupBox", "centralWidget", {290, 175, 341, 296}, 9, ""},
    {"vdjlistview", "QTableView", "groupBox_3", {10, 5, 301, 240}, 0, ""},
    {"pushButton_2", "QPushButton", "centralWidget", {120, 490, 131, 31}, 10, "Export"},
    {"groupBox", "QGroupBox", "centralWidget", {290, 30, 341, 51}, 9, "VirtualDJ"},
    {"radio_outputpage", "QRadioButton", "groupBox", {11, 20, 101, 22}, 0, "Pad Page"},
    {"radio_outputmidi", "QRadioButton", "groupBox", {120, 20, 131, 22}, 0, "MIDI Mapping"},
    {"padsname", "QLineEdit", "centralWidget", {410, 490, 191, 31}, 0, ""},
    {"label_padname", "QLabel", "centralWidget", {310, 490, 91, 31}, 9, "Pad Page"},
    {"groupBox_midis", "QGroupBox", "centralWidget", {290, 76, 1071, 41}, 0, ""},
    {"label_7", "QLabel", "groupBox_midis", {10, 10, 61, 22}, 0, "Device"},
    {"mididevices", "QComboBox", "groupBox_midis", {400, 10, 251, 24}, 0, ""},
    {"bank_label_3", "QLabel", "groupBox_midis", {330, 10, 61, 21}, 0, "Mapping"},
    {"devicescombo", "QComboBox", "groupBox_midis", {70, 10, 241, 24}, 0, ""},
    {"label_10", "QLabel", "groupBox_midis", {670, 10, 391, 22}, 0, "Default Colors"},
    {"groupBox_colors", "QGroupBox", "groupBox_midis", {740, 5, 321, 41}, 0, ""},
    {"label", "QLabel", "groupBox_colors", {20, 5, 31, 21}, 0, "Off"},
    {"combo_offcolor", "QComboBox", "groupBox_colors", {50, 5, 111, 24}, 0, ""},
    {"label_2", "QLabel", "groupBox_colors", {170, 5, 21, 21}, 0, "On"},
    {"combo_oncolor", "QComboBox", "groupBox_colors", {200, 5, 111, 24}, 0, ""},
    {"groupBox_pads", "QGroupBox", "centralWidget", {290, 80, 341, 98}, 0, ""},
    {"bank_label", "QLabel", "groupBox_pads", {120, 43, 51, 21}, 0, "Bank"},
    {"bankcombo", "QComboBox", "groupBox_pads", {170, 43, 51, 22}, 9, ""},
    {"label_3", "QLabel", "groupBox_pads", {120, 70, 41, 22}, 0, "Name"},
    {"bankname", "QLineEdit", "groupBox_pads", {170, 70, 141, 22}, 0, ""},
    {"groupBox_4", "QGroupBox", "groupBox_pads", {60, 2, 251, 31}, 0, ""},
    {"radioButton_8pads", "QRadioButton", "groupBox_4", {10, 6, 81, 22}, 0, "8 Pads "},
    {"radioButton_16pads", "QRadioButton", "groupBox_4", {110, 6, 91, 22}, 0, "16 Pads"},
    {"label_9", "QLabel", "groupBox_pads", {10, 5, 61, 22}, 0, "Layout"},
    {"cleanpads_button", "QPushButton", "groupBox_pads", {10, 40, 95, 31}, 9, "Clean"},
    {"groupBox_controller", "QGroupBox", "centralWidget", {290, 110, 1071, 361}, 9, ""},
    {"tablecontroller", "QTableView", "groupBox_controller", {10, 10, 1028, 346}, 0, ""},
    {"cleanmidi_button", "QPushButton", "groupBox_controller", {10, 10, 95, 31}, 9, "Clean"},
    {"menuBar", "QMenuBar", "MainWindow", {0, 0, 1365, 21}, 0, ""},
    {"menuPage", "QMenu", "menuBar", {450, 144, 147, 209}, 0, "File"},
    {"menuHelp", "QMenu", "menuBar", {}, 0, "Help"},
    {"mainToolBar", "QToolBar", "MainWindow", {}, 0, ""},
    {"statusBar", "QStatusBar", "MainWindow", {}, 0, ""},
};

/** All actions likewise, with their texts. */
const QVector<QPair<const char *, const char *>> Actions = {
    {"actionNew", "Load DMX Show"},
    {"actionExport", "Export"},
    {"actionSave", "Save"},
    {"actionAbout", "About"},
    {"actionNew_2", "New Project"},
    {"actionSave_2", "Save Project"},
    {"actionLoad_Project", "Load Project"},
    {"actionExit", "Exit"},
    {"actionManual", "Manual"},
};

/** The form on a window of its own, as no code of the program has touched it. */
struct Form
{
    Form() { ui.setupUi(&window); }

    template<typename T>
    T *find(const char *name) const
    {
        return window.findChild<T *>(name);
    }

    QMainWindow window;
    Ui_MainWindow ui;
};

QStringList allNames()
{
    QStringList names;
    for (const auto &action : Actions)
        names += action.first;
    for (const FormWidget &widget : Widgets)
        names += widget.name;
    return names;
}

QStringList childrenByTable(const QString &parent)
{
    QStringList names;
    for (const FormWidget &widget : Widgets) {
        if (parent == widget.parent)
            names += widget.name;
    }
    return names;
}

QString entriesOf(const QWidget *menu)
{
    QStringList entries;
    for (const QAction *action : menu->actions()) {
        const QMenu *submenu = action->menu();
        entries += action->isSeparator() ? "-" : submenu ? submenu->objectName() : action->objectName();
    }
    return entries.join(' ');
}

} // namespace

/** The form alone: every object with what the designer gave it. */
class TestForm final : public QObject
{
    Q_OBJECT

private slots:
    void widget_data();
    void widget();
    void actions();
    void pointersStandInOrder();
    void nothingElse();
    void stacking();
    void menuEntries();
    void window();
    void table_data();
    void table();
    void oddWidgets();
};

void TestForm::widget_data()
{
    QTest::addColumn<int>("position");
    for (int position = 0; position < Widgets.size(); ++position)
        QTest::newRow(Widgets.at(position).name) << position;
}

void TestForm::widget()
{
    QFETCH(const int, position);
    const FormWidget &expected = Widgets.at(position);
    const Form form;

    const auto found = form.window.findChildren<QWidget *>(expected.name);
    QCOMPARE(found.size(), 1);
    const QWidget *widget = found.first();
    QCOMPARE(widget->metaObject()->className(), expected.type);
    QCOMPARE(widget->parentWidget()->objectName(), QString(expected.parent));
    if (!expected.rect.isNull())
        QCOMPARE(widget->geometry(), expected.rect);

    const bool isTitled = widget->inherits("QGroupBox") || widget->inherits("QMenu");
    QCOMPARE(widget->property(isTitled ? "title" : "text").toString(), QString(expected.text));
    QVERIFY(widget->styleSheet().isEmpty());

    const bool isMenu = widget->isWindow(); // it takes the font of its class, and is hidden
    if (!isMenu || expected.points > 0)
        QCOMPARE(widget->font().pointSize(),
                 expected.points > 0 ? expected.points : widget->parentWidget()->font().pointSize());
    QVERIFY(isMenu || widget->font().family() == "Arial");
    QVERIFY(isMenu || !widget->isHidden());
    QVERIFY(widget->isEnabled());
    QVERIFY(!widget->layout() || widget->inherits("QMenuBar") || widget->inherits("QToolBar")
            || widget->inherits("QStatusBar"));
}

void TestForm::actions()
{
    const Form form;
    for (const auto &[name, text] : Actions) {
        const auto found = form.window.findChildren<QAction *>(name);
        QVERIFY2(found.size() == 1 && found.first()->text() == text, name);
        QVERIFY2(found.first()->parent() == &form.window && found.first()->shortcuts().isEmpty(), name);
        QVERIFY2(found.first()->isEnabled() && found.first()->isVisible(), name);
        QVERIFY2(!found.first()->isCheckable(), name);
    }
}

/** The order in which setupUi() makes them, too. */
void TestForm::pointersStandInOrder()
{
    const Form form;
    std::array<QObject *, sizeof(Ui_MainWindow) / sizeof(void *)> pointers{};
    std::memcpy(pointers.data(), &form.ui, sizeof form.ui);
    QStringList names;
    for (const QObject *pointer : pointers)
        names += pointer->objectName();
    QCOMPARE(names, allNames());
}

void TestForm::nothingElse()
{
    const Form form;
    QStringList names;
    for (const QObject *child : form.window.findChildren<QObject *>()) {
        const bool isNamed = !QRegularExpression("^(qt_.*|_q.*|)$").match(child->objectName()).hasMatch();
        if (isNamed && (child->isWidgetType() || child->inherits("QAction")))
            names += child->objectName();
    }
    names.sort();
    QStringList expected = allNames();
    expected.sort();
    QCOMPARE(names, expected);
}

void TestForm::stacking()
{
    const Form form;
    for (const FormWidget &parent : Widgets) {
        QStringList bottomToTop;
        for (const QObject *child : form.find<QWidget>(parent.name)->children()) {
            if (allNames().contains(child->objectName()))
                bottomToTop += child->objectName();
        }
        const QStringList raised = {"label_7",      "bank_label_3", "mididevices",
                                    "devicescombo", "label_10",     "groupBox_colors"};
        const bool isRaised = qstrcmp(parent.name, "groupBox_midis") == 0;
        QCOMPARE(bottomToTop, isRaised ? raised : childrenByTable(parent.name));
    }
}

void TestForm::menuEntries()
{
    const Form form;
    QCOMPARE(entriesOf(form.ui.menuBar), QString("menuPage menuHelp"));
    QCOMPARE(entriesOf(form.ui.menuPage), QString("actionNew - actionNew_2 actionLoad_Project actionSave_2 - "
                                                  "actionExport - actionExit"));
    QCOMPARE(entriesOf(form.ui.menuHelp), QString("actionAbout"));
    QCOMPARE(entriesOf(form.ui.mainToolBar), QString());
    QCOMPARE(form.window.toolBarArea(form.ui.mainToolBar), Qt::TopToolBarArea);
    QVERIFY(!form.window.toolBarBreak(form.ui.mainToolBar));
}

void TestForm::window()
{
    const Form form;
    QCOMPARE(form.window.objectName(), QString("MainWindow"));
    QCOMPARE(form.window.windowTitle(), QString("MainWindow"));
    QCOMPARE(form.window.size(), QSize(1365, 606));
    QCOMPARE(form.window.minimumSize(), QSize(1365, 606));
    QCOMPARE(form.window.maximumSize(), QSize(1365, 606));
    QCOMPARE(form.window.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
    QCOMPARE(form.window.font().family(), QString("Arial"));
    QVERIFY(form.window.windowIcon().isNull());
    QVERIFY(form.window.styleSheet().isEmpty());
    QCOMPARE(form.window.centralWidget(), form.ui.centralWidget);
    QCOMPARE(form.window.menuBar(), form.ui.menuBar);
}

void TestForm::table_data()
{
    QTest::addColumn<Qt::PenStyle>("gridStyle");
    QTest::addColumn<bool>("hidesHeaders");
    QTest::addColumn<Qt::ScrollBarPolicy>("vertical");
    QTest::addColumn<Qt::ScrollBarPolicy>("horizontal");
    QTest::addColumn<bool>("isFitted");
    const auto off = Qt::ScrollBarAlwaysOff;
    const auto needed = Qt::ScrollBarAsNeeded;
    QTest::newRow("dmxlistview") << Qt::NoPen << true << needed << needed << false;
    QTest::newRow("vdjlistview") << Qt::SolidLine << true << off << needed << false;
    QTest::newRow("tablecontroller") << Qt::SolidLine << false << off << off << true;
}

void TestForm::table()
{
    QFETCH(const Qt::PenStyle, gridStyle);
    QFETCH(const bool, hidesHeaders);
    QFETCH(const Qt::ScrollBarPolicy, vertical);
    QFETCH(const Qt::ScrollBarPolicy, horizontal);
    QFETCH(const bool, isFitted);
    const Form form;
    const auto *view = form.find<QTableView>(QTest::currentDataTag());
    QCOMPARE(view->gridStyle(), gridStyle);
    QVERIFY(view->showGrid());
    for (const QHeaderView *header : {view->horizontalHeader(), view->verticalHeader()}) {
        QCOMPARE(header->isHidden(), hidesHeaders);
        QCOMPARE(header->highlightSections(), !hidesHeaders);
    }
    QCOMPARE(view->verticalScrollBarPolicy(), vertical);
    QCOMPARE(view->horizontalScrollBarPolicy(), horizontal);
    QCOMPARE(view->sizeAdjustPolicy() == QAbstractScrollArea::AdjustToContents, isFitted);
}

/** What only one widget of its kind has. */
void TestForm::oddWidgets()
{
    const Form form;
    QStringList odd;
    for (const QGroupBox *box : form.window.findChildren<QGroupBox *>()) {
        if (box->isFlat())
            odd += box->objectName() + " flat";
    }
    for (const QLabel *label : form.window.findChildren<QLabel *>()) {
        if (label->alignment() != (Qt::AlignLeft | Qt::AlignVCenter))
            odd += label->objectName() + QString(" %1").arg(int(label->alignment()), 0, 16);
    }
    QCOMPARE(odd, (QStringList{"groupBox flat", "label_4 84", "label_padname 82"}));

    const QFont font = form.ui.pushButton_2->font();
    QCOMPARE(font.weight(), int(QFont::Normal));
    QVERIFY(font.resolve() & QFont::WeightResolved);
    QCOMPARE(form.ui.menuPage->sizePolicy(),
             QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred));
    QCOMPARE(form.ui.menuPage->minimumSize(), QSize(120, 0));
    QCOMPARE(form.ui.menuHelp->minimumSize(), QSize(0, 0));
}

QTEST_MAIN(TestForm)
#include "test_form.moc"
