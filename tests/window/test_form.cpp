#include "ui_mainwindow.h"

#include <QTranslator>
#include <QtTest>

#include <algorithm>
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
    const char *text;
    int points; ///< size of a font of its own; 0 where the font is the parent's
};

/** All widgets, in the order in which they come into being. */
const QVector<FormWidget> &formWidgets()
{
    static const QVector<FormWidget> widgets{
        {"centralWidget", "QWidget", "MainWindow", {}, "", 0},
        {"label_4",
         "QLabel",
         "centralWidget",
         {10, 5, 621, 20},
         "Create a VirtualDJ Pads Page from The Lighting Controller DMX (Sweetlight, ShowXPress, QuickDMX)",
         0},
        {"groupBox_2", "QGroupBox", "centralWidget", {10, 30, 271, 441}, "DMX Software", 9},
        {"label_6", "QLabel", "groupBox_2", {10, 70, 131, 16}, "Live Pages", 9},
        {"dmxlistview", "QTableView", "groupBox_2", {10, 150, 241, 240}, "", 0},
        {"label_5", "QLabel", "groupBox_2", {10, 130, 131, 16}, "Live Buttons", 9},
        {"combobox", "QComboBox", "groupBox_2", {10, 90, 241, 27}, "", 10},
        {"loadini", "QPushButton", "groupBox_2", {120, 30, 131, 31}, "Load DMX Show", 10},
        {"groupBox_3", "QGroupBox", "centralWidget", {290, 175, 341, 296}, "", 9},
        {"vdjlistview", "QTableView", "groupBox_3", {10, 5, 301, 240}, "", 0},
        {"pushButton_2", "QPushButton", "centralWidget", {120, 490, 131, 31}, "Export", 10},
        {"groupBox", "QGroupBox", "centralWidget", {290, 30, 341, 51}, "VirtualDJ", 9},
        {"radio_outputpage", "QRadioButton", "groupBox", {11, 20, 101, 22}, "Pad Page", 0},
        {"radio_outputmidi", "QRadioButton", "groupBox", {120, 20, 131, 22}, "MIDI Mapping", 0},
        {"padsname", "QLineEdit", "centralWidget", {410, 490, 191, 31}, "", 0},
        {"label_padname", "QLabel", "centralWidget", {310, 490, 91, 31}, "Pad Page", 9},
        {"groupBox_midis", "QGroupBox", "centralWidget", {290, 76, 1071, 41}, "", 0},
        {"label_7", "QLabel", "groupBox_midis", {10, 10, 61, 22}, "Device", 0},
        {"mididevices", "QComboBox", "groupBox_midis", {400, 10, 251, 24}, "", 0},
        {"bank_label_3", "QLabel", "groupBox_midis", {330, 10, 61, 21}, "Mapping", 0},
        {"devicescombo", "QComboBox", "groupBox_midis", {70, 10, 241, 24}, "", 0},
        {"label_10", "QLabel", "groupBox_midis", {670, 10, 391, 22}, "Default Colors", 0},
        {"groupBox_colors", "QGroupBox", "groupBox_midis", {740, 5, 321, 41}, "", 0},
        {"label", "QLabel", "groupBox_colors", {20, 5, 31, 21}, "Off", 0},
        {"combo_offcolor", "QComboBox", "groupBox_colors", {50, 5, 111, 24}, "", 0},
        {"label_2", "QLabel", "groupBox_colors", {170, 5, 21, 21}, "On", 0},
        {"combo_oncolor", "QComboBox", "groupBox_colors", {200, 5, 111, 24}, "", 0},
        {"groupBox_pads", "QGroupBox", "centralWidget", {290, 80, 341, 98}, "", 0},
        {"bank_label", "QLabel", "groupBox_pads", {120, 43, 51, 21}, "Bank", 0},
        {"bankcombo", "QComboBox", "groupBox_pads", {170, 43, 51, 22}, "", 9},
        {"label_3", "QLabel", "groupBox_pads", {120, 70, 41, 22}, "Name", 0},
        {"bankname", "QLineEdit", "groupBox_pads", {170, 70, 141, 22}, "", 0},
        {"groupBox_4", "QGroupBox", "groupBox_pads", {60, 2, 251, 31}, "", 0},
        {"radioButton_8pads", "QRadioButton", "groupBox_4", {10, 6, 81, 22}, "8 Pads ", 0},
        {"radioButton_16pads", "QRadioButton", "groupBox_4", {110, 6, 91, 22}, "16 Pads", 0},
        {"label_9", "QLabel", "groupBox_pads", {10, 5, 61, 22}, "Layout", 0},
        {"cleanpads_button", "QPushButton", "groupBox_pads", {10, 40, 95, 31}, "Clean", 9},
        {"groupBox_controller", "QGroupBox", "centralWidget", {290, 110, 1071, 361}, "", 9},
        {"tablecontroller", "QTableView", "groupBox_controller", {10, 10, 1028, 346}, "", 0},
        {"cleanmidi_button", "QPushButton", "groupBox_controller", {10, 10, 95, 31}, "Clean", 9},
        {"menuBar", "QMenuBar", "MainWindow", {0, 0, 1365, 21}, "", 0},
        {"menuPage", "QMenu", "menuBar", {450, 144, 147, 209}, "File", 0},
        {"menuHelp", "QMenu", "menuBar", {}, "Help", 0},
        {"mainToolBar", "QToolBar", "MainWindow", {}, "", 0},
        {"statusBar", "QStatusBar", "MainWindow", {}, "", 0},
    };
    return widgets;
}

struct FormAction
{
    const char *name;
    const char *text;
};

/** All actions, in the order in which they come into being. */
const QVector<FormAction> &formActions()
{
    static const QVector<FormAction> actions{
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
    return actions;
}

/** What is read out of widgets that have no text of their own. */
QStringList accessibleNames()
{
    return {"Live Pages",
            "Live Buttons",
            "Bank",
            "Bank name",
            "Pads",
            "Layout",
            "Device",
            "Mapping",
            "Default Colors",
            "Default color of a key that is off",
            "Default color of a key that is on",
            "Keys of the device",
            "Name of the Pads Page or mapping"};
}

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
    for (const FormAction &action : formActions())
        names += action.name;
    for (const FormWidget &widget : formWidgets())
        names += widget.name;
    return names;
}

/** Names of an object's children from the bottom to the top, those of the form alone. */
QStringList childNames(const QObject *parent)
{
    const QStringList known = allNames();
    QStringList names;
    for (const QObject *child : parent->children()) {
        if (known.contains(child->objectName()))
            names += child->objectName();
    }
    return names;
}

QStringList entries(const QWidget *menu)
{
    QStringList entries;
    for (const QAction *action : menu->actions()) {
        const QMenu *submenu = action->menu();
        entries += action->isSeparator() ? "-" : submenu ? submenu->objectName() : action->objectName();
    }
    return entries;
}

/** Notes every object that becomes a child of another, in order. */
class Births final : public QObject
{
public:
    Births() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            const QPointer<QObject> child = static_cast<QChildEvent *>(event)->child();
            if (!m_children.contains(child))
                m_children.append(child);
        }
        return false;
    }

    /** Those of the given names, in the order of their births. */
    QStringList namesAmong(const QStringList &names) const
    {
        QStringList born;
        for (const QPointer<QObject> &child : m_children) {
            if (child && names.contains(child->objectName()))
                born += child->objectName();
        }
        return born;
    }

private:
    QList<QPointer<QObject>> m_children;
};

/** Marks every text that it is asked for, and remembers it. */
class MarkingTranslator final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char *context, const char *text, const char *disambiguation,
                      int /*n*/) const override
    {
        if (qstrcmp(context, "MainWindow") != 0 || disambiguation)
            return {};
        texts += text;
        return QString("<%1>").arg(text);
    }

    mutable QStringList texts;
};

/** A window with one slot that the form has to find by its name. */
class WindowWithSlot final : public QMainWindow
{
    Q_OBJECT

public:
    int clicks = 0;

public slots:
    void on_loadini_clicked() { ++clicks; }
};

} // namespace

/** The form alone: every object with what the designer gave it. */
class TestForm final : public QObject
{
    Q_OBJECT

private slots:
    void widget_data();
    void widget();
    void nothingElse();

    void creationOrder();
    void pointersStandInOrder();
    void stacking_data();
    void stacking();

    void window();
    void labelAlignment_data();
    void labelAlignment();
    void onlyVirtualDjIsFlat();
    void exportFontHasNormalWeight();
    void trailingBlankStays();

    void table_data();
    void table();
    void gridTable();
    void menuSize();
    void barsArePlaced();
    void centralWidgetHasNoSheetYet();

    void action_data();
    void action();
    void menuEntries_data();
    void menuEntries();

    void narrowPanelsEndAt631();
    void devicePanelsEndAt1361_data();
    void devicePanelsEndAt1361();
    void padsPanelOverlapsPadsTable();
    void cleanButtonLiesOverGrid();
    void colorsFrameLiesOverItsLabel();

    void setUpTranslates();
    void retranslateSetsAllTexts();
    void setUpConnectsSlotsByName();
};

void TestForm::widget_data()
{
    QTest::addColumn<int>("position");
    for (int position = 0; position < formWidgets().size(); ++position)
        QTest::newRow(formWidgets().at(position).name) << position;
}

void TestForm::widget()
{
    QFETCH(const int, position);
    const FormWidget &expected = formWidgets().at(position);
    const Form form;

    const auto found = form.window.findChildren<QWidget *>(expected.name);
    QCOMPARE(found.size(), 1);
    const QWidget *widget = found.first();
    QCOMPARE(widget->metaObject()->className(), expected.type);
    QCOMPARE(widget->parentWidget()->objectName(), QString(expected.parent));
    if (!expected.rect.isNull())
        QCOMPARE(widget->geometry(), expected.rect);

    const bool isTitled = widget->inherits("QGroupBox") || widget->inherits("QMenu");
    const QVariant text = widget->property(isTitled ? "title" : "text");
    QCOMPARE(text.toString(), QString(expected.text));

    if (expected.points > 0)
        QCOMPARE(widget->font().pointSize(), expected.points);
    else if (!widget->isWindow())
        QCOMPARE(widget->font().pointSize(), widget->parentWidget()->font().pointSize());
    if (!widget->isWindow())
        QCOMPARE(widget->font().family(), QString("Arial"));
    QVERIFY(!widget->isHidden() || widget->isWindow());
    QVERIFY(widget->isEnabled());
    QVERIFY(!widget->layout() || widget->inherits("QMenuBar") || widget->inherits("QToolBar")
            || widget->inherits("QStatusBar"));
}

void TestForm::nothingElse()
{
    const Form form;
    QStringList strangers;
    for (const QWidget *child : form.window.findChildren<QWidget *>()) {
        const QString name = child->objectName();
        const bool isPartOfAnother = name.isEmpty() || name.startsWith("qt_") || name.startsWith("_q");
        if (!isPartOfAnother && !allNames().contains(name))
            strangers += name;
    }
    for (const QAction *child : form.window.findChildren<QAction *>()) {
        if (!child->isSeparator() && !child->menu() && !allNames().contains(child->objectName()))
            strangers += child->objectName() + child->text();
    }
    QCOMPARE(strangers.join(" "), QString());
}

void TestForm::creationOrder()
{
    const Births births;
    const Form form;
    QCOMPARE(births.namesAmong(allNames()), allNames());
}

void TestForm::pointersStandInOrder()
{
    const Form form;
    constexpr std::size_t Count = sizeof(Ui_MainWindow) / sizeof(void *);
    std::array<void *, Count> pointers{};
    std::memcpy(pointers.data(), &form.ui, sizeof form.ui);

    QStringList names;
    for (void *pointer : pointers)
        names += static_cast<QObject *>(pointer)->objectName();
    QCOMPARE(names, allNames());
}

void TestForm::stacking_data()
{
    QTest::addColumn<QStringList>("bottomToTop");

    QTest::newRow("centralWidget") << QStringList{
        "label_4",  "groupBox_2",    "groupBox_3",     "pushButton_2",  "groupBox",
        "padsname", "label_padname", "groupBox_midis", "groupBox_pads", "groupBox_controller"};
    QTest::newRow("groupBox_2") << QStringList{"label_6", "dmxlistview", "label_5", "combobox", "loadini"};
    QTest::newRow("groupBox_3") << QStringList{"vdjlistview"};
    QTest::newRow("groupBox") << QStringList{"radio_outputpage", "radio_outputmidi"};
    QTest::newRow("groupBox_midis") << QStringList{"label_7",      "bank_label_3", "mididevices",
                                                   "devicescombo", "label_10",     "groupBox_colors"};
    QTest::newRow("groupBox_colors") << QStringList{"label", "combo_offcolor", "label_2", "combo_oncolor"};
    QTest::newRow("groupBox_pads") << QStringList{"bank_label", "bankcombo", "label_3",         "bankname",
                                                  "groupBox_4", "label_9",   "cleanpads_button"};
    QTest::newRow("groupBox_4") << QStringList{"radioButton_8pads", "radioButton_16pads"};
    QTest::newRow("groupBox_controller") << QStringList{"tablecontroller", "cleanmidi_button"};
    QTest::newRow("menuBar") << QStringList{"menuPage", "menuHelp"};
}

void TestForm::stacking()
{
    QFETCH(const QStringList, bottomToTop);
    const Form form;
    QCOMPARE(childNames(form.find<QWidget>(QTest::currentDataTag())), bottomToTop);
}

void TestForm::window()
{
    const Form form;
    QCOMPARE(form.window.objectName(), QString("MainWindow"));
    QCOMPARE(form.window.windowTitle(), QString("MainWindow"));
    QCOMPARE(form.window.size(), QSize(1365, 606));
    QCOMPARE(form.window.minimumSize(), QSize(1365, 606));
    QCOMPARE(form.window.maximumSize(), QSize(1365, 606));
    QCOMPARE(form.window.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(form.window.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(form.window.font().family(), QString("Arial"));
    QVERIFY(form.window.windowIcon().isNull());
}

void TestForm::labelAlignment_data()
{
    QTest::addColumn<int>("alignment");
    for (const FormWidget &widget : formWidgets()) {
        if (qstrcmp(widget.type, "QLabel") != 0)
            continue;
        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
        if (qstrcmp(widget.name, "label_4") == 0)
            alignment = Qt::AlignHCenter | Qt::AlignVCenter;
        else if (qstrcmp(widget.name, "label_padname") == 0)
            alignment = Qt::AlignRight | Qt::AlignVCenter;
        QTest::newRow(widget.name) << int(alignment);
    }
}

void TestForm::labelAlignment()
{
    QFETCH(const int, alignment);
    const Form form;
    QCOMPARE(int(form.find<QLabel>(QTest::currentDataTag())->alignment()), alignment);
}

void TestForm::onlyVirtualDjIsFlat()
{
    const Form form;
    QStringList flat;
    for (const QGroupBox *box : form.window.findChildren<QGroupBox *>()) {
        if (box->isFlat())
            flat += box->objectName();
    }
    QCOMPARE(flat, QStringList{"groupBox"});
}

void TestForm::exportFontHasNormalWeight()
{
    const Form form;
    const QFont font = form.find<QPushButton>("pushButton_2")->font();
    QCOMPARE(font.weight(), int(QFont::Normal));
    QVERIFY(!font.bold());
    QVERIFY(font.resolve() & QFont::WeightResolved);
}

void TestForm::trailingBlankStays()
{
    const Form form;
    QVERIFY(form.find<QRadioButton>("radioButton_8pads")->text().endsWith(QChar(' ')));
    QVERIFY(!form.find<QRadioButton>("radioButton_16pads")->text().endsWith(QChar(' ')));
}

void TestForm::table_data()
{
    QTest::addColumn<int>("gridStyle");
    QTest::addColumn<bool>("hidesHeaders");
    QTest::addColumn<int>("verticalScrollBar");
    QTest::addColumn<int>("horizontalScrollBar");

    QTest::newRow("dmxlistview") << int(Qt::NoPen) << true << int(Qt::ScrollBarAsNeeded)
                                 << int(Qt::ScrollBarAsNeeded);
    QTest::newRow("vdjlistview") << int(Qt::SolidLine) << true << int(Qt::ScrollBarAlwaysOff)
                                 << int(Qt::ScrollBarAsNeeded);
    QTest::newRow("tablecontroller") << int(Qt::SolidLine) << false << int(Qt::ScrollBarAlwaysOff)
                                     << int(Qt::ScrollBarAlwaysOff);
}

void TestForm::table()
{
    QFETCH(const int, gridStyle);
    QFETCH(const bool, hidesHeaders);
    QFETCH(const int, verticalScrollBar);
    QFETCH(const int, horizontalScrollBar);
    const Form form;
    const auto *view = form.find<QTableView>(QTest::currentDataTag());

    QCOMPARE(int(view->gridStyle()), gridStyle);
    QVERIFY(view->showGrid());
    for (const QHeaderView *header : {view->horizontalHeader(), view->verticalHeader()}) {
        QCOMPARE(header->isHidden(), hidesHeaders);
        QCOMPARE(header->highlightSections(), !hidesHeaders);
    }
    QCOMPARE(int(view->verticalScrollBarPolicy()), verticalScrollBar);
    QCOMPARE(int(view->horizontalScrollBarPolicy()), horizontalScrollBar);
}

void TestForm::gridTable()
{
    const Form form;
    QCOMPARE(form.find<QTableView>("tablecontroller")->sizeAdjustPolicy(),
             QAbstractScrollArea::AdjustToContents);
    QCOMPARE(form.find<QTableView>("vdjlistview")->sizeAdjustPolicy(), QAbstractScrollArea::AdjustIgnored);
    QCOMPARE(form.find<QTableView>("dmxlistview")->sizeAdjustPolicy(), QAbstractScrollArea::AdjustIgnored);
}

void TestForm::menuSize()
{
    const Form form;
    const auto *menu = form.find<QMenu>("menuPage");
    QCOMPARE(menu->sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(menu->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(menu->minimumSize(), QSize(120, 0));
    QCOMPARE(form.find<QMenu>("menuHelp")->minimumSize(), QSize(0, 0));
}

void TestForm::barsArePlaced()
{
    const Form form;
    QCOMPARE(form.window.centralWidget()->objectName(), QString("centralWidget"));
    QCOMPARE(form.window.menuBar()->objectName(), QString("menuBar"));
    const auto *statusBar = form.find<QStatusBar>("statusBar");
    QVERIFY(statusBar);
    QCOMPARE(form.window.findChildren<QStatusBar *>().size(), 1);
    auto *toolBar = form.find<QToolBar>("mainToolBar");
    QCOMPARE(form.window.toolBarArea(toolBar), Qt::TopToolBarArea);
    QVERIFY(!form.window.toolBarBreak(toolBar));
    QVERIFY(toolBar->actions().isEmpty());
}

void TestForm::centralWidgetHasNoSheetYet()
{
    const Form form;
    QVERIFY(form.window.styleSheet().isEmpty());
    for (const FormWidget &widget : formWidgets())
        QVERIFY2(form.find<QWidget>(widget.name)->styleSheet().isEmpty(), widget.name);
}

void TestForm::action_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("menu");

    QTest::newRow("actionNew") << "Load DMX Show"
                               << "menuPage";
    QTest::newRow("actionExport") << "Export"
                                  << "menuPage";
    QTest::newRow("actionSave") << "Save" << QString();
    QTest::newRow("actionAbout") << "About"
                                 << "menuHelp";
    QTest::newRow("actionNew_2") << "New Project"
                                 << "menuPage";
    QTest::newRow("actionSave_2") << "Save Project"
                                  << "menuPage";
    QTest::newRow("actionLoad_Project") << "Load Project"
                                        << "menuPage";
    QTest::newRow("actionExit") << "Exit"
                                << "menuPage";
    QTest::newRow("actionManual") << "Manual" << QString();
}

void TestForm::action()
{
    QFETCH(const QString, text);
    QFETCH(const QString, menu);
    const Form form;

    const auto found = form.window.findChildren<QAction *>(QTest::currentDataTag());
    QCOMPARE(found.size(), 1);
    const QAction *action = found.first();
    QCOMPARE(action->text(), text);
    QCOMPARE(action->parent(), &form.window);
    QVERIFY(action->shortcuts().isEmpty());
    QVERIFY(action->isEnabled() && action->isVisible() && !action->isCheckable());

    QStringList places;
    for (const QWidget *place : action->associatedWidgets())
        places += place->objectName();
    QCOMPARE(places, menu.isEmpty() ? QStringList() : QStringList{menu});
}

void TestForm::menuEntries_data()
{
    QTest::addColumn<QStringList>("fromTheTop");
    QTest::newRow("menuBar") << QStringList{"menuPage", "menuHelp"};
    QTest::newRow("menuPage") << QStringList{"actionNew",    "-", "actionNew_2",  "actionLoad_Project",
                                             "actionSave_2", "-", "actionExport", "-",
                                             "actionExit"};
    QTest::newRow("menuHelp") << QStringList{"actionAbout"};
    QTest::newRow("mainToolBar") << QStringList();
}

void TestForm::menuEntries()
{
    QFETCH(const QStringList, fromTheTop);
    const Form form;
    QCOMPARE(entries(form.find<QWidget>(QTest::currentDataTag())), fromTheTop);
}

void TestForm::narrowPanelsEndAt631()
{
    const Form form;
    const QStringList wide{"groupBox_midis", "groupBox_controller"};
    for (const FormWidget &widget : formWidgets()) {
        if (qstrcmp(widget.parent, "centralWidget") != 0 || wide.contains(widget.name))
            continue;
        const QRect rect = form.find<QWidget>(widget.name)->geometry();
        QVERIFY2(rect.x() + rect.width() <= 631, widget.name);
    }
}

void TestForm::devicePanelsEndAt1361_data()
{
    QTest::addColumn<int>("x");
    QTest::newRow("groupBox_midis") << 290;
    QTest::newRow("groupBox_controller") << 290;
}

void TestForm::devicePanelsEndAt1361()
{
    QFETCH(const int, x);
    const Form form;
    const QRect rect = form.find<QGroupBox>(QTest::currentDataTag())->geometry();
    QCOMPARE(rect.x(), x);
    QCOMPARE(rect.x() + rect.width(), 1361);
}

void TestForm::padsPanelOverlapsPadsTable()
{
    const Form form;
    const auto *panel = form.find<QGroupBox>("groupBox_pads");
    const auto *table = form.find<QGroupBox>("groupBox_3");
    QCOMPARE(panel->y() + panel->height(), 178);
    QCOMPARE(table->y(), 175);
    const QObjectList children = form.window.centralWidget()->children();
    QVERIFY(children.indexOf(form.ui.groupBox_pads) > children.indexOf(form.ui.groupBox_3));
}

void TestForm::cleanButtonLiesOverGrid()
{
    const Form form;
    QCOMPARE(form.ui.cleanmidi_button->geometry().topLeft(), form.ui.tablecontroller->geometry().topLeft());
    const QObjectList children = form.ui.groupBox_controller->children();
    QVERIFY(children.indexOf(form.ui.cleanmidi_button) > children.indexOf(form.ui.tablecontroller));
}

void TestForm::colorsFrameLiesOverItsLabel()
{
    const Form form;
    QVERIFY(form.ui.groupBox_colors->geometry().intersects(form.ui.label_10->geometry()));
    QCOMPARE(form.ui.groupBox_midis->children().last(), form.ui.groupBox_colors);
}

void TestForm::setUpTranslates()
{
    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Form form;
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(form.window.windowTitle(), QString("<MainWindow>"));
    QCOMPARE(form.ui.loadini->text(), QString("<Load DMX Show>"));
}

void TestForm::retranslateSetsAllTexts()
{
    QStringList expected{"MainWindow"};
    for (const FormAction &action : formActions())
        expected += action.text;
    for (const FormWidget &widget : formWidgets()) {
        if (*widget.text)
            expected += widget.text;
    }
    expected += accessibleNames();
    std::sort(expected.begin(), expected.end());

    Form form;
    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    translator.texts.clear();
    form.ui.retranslateUi(&form.window);
    QStringList asked = translator.texts;
    QCoreApplication::removeTranslator(&translator);
    std::sort(asked.begin(), asked.end());
    QCOMPARE(asked, expected);

    for (const FormAction &action : formActions())
        QCOMPARE(form.find<QAction>(action.name)->text(), QString("<%1>").arg(action.text));
    form.ui.retranslateUi(&form.window);
    for (const FormAction &action : formActions())
        QCOMPARE(form.find<QAction>(action.name)->text(), QString(action.text));
}

void TestForm::setUpConnectsSlotsByName()
{
    WindowWithSlot window;
    Ui_MainWindow ui;
    ui.setupUi(&window);
    ui.loadini->click();
    QCOMPARE(window.clicks, 1);
}

QTEST_MAIN(TestForm)
#include "test_form.moc"
