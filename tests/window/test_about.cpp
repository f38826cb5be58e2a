#include "app/dialog.h"
#include "support/workspace.h"
#include "ui_dialog.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QSizeGrip>
#include <QUrl>

#include <array>
#include <cstring>
#include <functional>

namespace {

/** One widget of the dialog, as a person wrote it down. */
struct AboutWidget
{
    const char *name;
    const char *type;
    QRect rect;
    const char *text;
};

/** All widgets, in the order in which they come into being. */
const QVector<AboutWidget> &aboutWidgets()
{
    static const QVector<AboutWidget> widgets{
        {"checkupdates", "QPushButton", {90, 150, 231, 31}, "Check for Updates"},
        {"support", "QPushButton", {90, 190, 231, 31}, "Support"},
        {"vdjwebsite", "QPushButton", {90, 230, 231, 31}, "VirtualDJ Website"},
        {"label",
         "QLabel",
         {20, 10, 81, 61},
         R"(<html><head/><body><p align="center"><img src=":/icons/Images/quelvarlogo.png" width="60"/></p></body></html>)"},
        {"label_3",
         "QLabel",
         {20, 70, 331, 31},
         "Create a VirtualDJ Pads page with you Light Show Live buttons"},
        {"label_4",
         "QLabel",
         {20, 90, 361, 31},
         "and control your DMX application (Sweetlight, ShowXpress, QuickDMX)"},
        {"label_5",
         "QLabel",
         {100, 10, 201, 61},
         R"(<html><head/><body><p align="center"><img src=":/icons/Images/zarvexlogo.png" width="200"/></p></body></html>)"},
        {"label_6", "QLabel", {20, 110, 361, 31}, "from within VirtualDJ using the OS2L protocol."},
        {"label_7", "QLabel", {10, 370, 191, 31}, "Zravex ver.2.0 - 2020 - Quelvar"},
        {"pushButton", "QPushButton", {90, 270, 231, 31}, "OS2L"},
        {"tlcforum", "QPushButton", {90, 310, 231, 31}, "The Lighting Controller"},
    };
    return widgets;
}

QStringList allNames()
{
    QStringList names;
    for (const AboutWidget &widget : aboutWidgets())
        names += widget.name;
    return names;
}

QStringList namesOf(const QObjectList &objects)
{
    QStringList names;
    for (const QObject *object : objects)
        names += object->objectName();
    return names;
}

/** The form on a dialog of its own, as no code of the program has touched it. */
struct Form
{
    Form() { ui.setupUi(&dialog); }

    QDialog dialog;
    Ui_Dialog ui;
};

/** A dialog with one slot that the form has to find by its name. */
class DialogWithSlot final : public QDialog
{
    Q_OBJECT

public:
    int clicks = 0;

public slots:
    void on_support_clicked() { ++clicks; }
};

/** Stands in for the user's browser. */
class Browser final : public QObject
{
    Q_OBJECT

public:
    /** @param slot  that gets the pages; one that is not there cannot open any */
    explicit Browser(const char *slot = "open")
    {
        QDesktopServices::setUrlHandler("https", this, slot);
        QDesktopServices::setUrlHandler("http", this, slot);
    }

    ~Browser() override
    {
        QDesktopServices::unsetUrlHandler("https");
        QDesktopServices::unsetUrlHandler("http");
    }

    QList<QUrl> pages;

public slots:
    void open(const QUrl &page) { pages += page; }
};

/** Looks at every About dialog in the moment in which it shows. */
class Watcher final : public QObject
{
public:
    explicit Watcher(const std::function<void(Dialog &)> &look) : m_look(look)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<Dialog *>(watched))
            m_look(*static_cast<Dialog *>(watched));
        return false;
    }

private:
    std::function<void(Dialog &)> m_look;
};

QPushButton *buttonOf(const QWidget &dialog, const char *name)
{
    auto *button = dialog.findChild<QPushButton *>(name);
    if (!button)
        qFatal("no button %s", name);
    return button;
}

/** The rectangle of all that is not black. */
QRect paintedPart(const QImage &picture)
{
    QRect part;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) > 40)
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}

} // namespace

/** The About dialog: what it shows, where its buttons lead, and that it leaves no trace. */
class TestAbout final : public QObject
{
    Q_OBJECT

private slots:
    void widget_data();
    void widget();
    void childrenStandInOrder();
    void pointersStandInOrder();
    void formHasFixedSize();
    void formIsInArial();
    void buttonFont_data();
    void buttonFont();
    void firstLogoFillsNoBackground();
    void formConnectsSlotsByName();

    void isDialog();
    void slotsStandInOrder();
    void builtByProgram_data();
    void builtByProgram();
    void titleAndSheet();
    void hasNoHelpAndNoGrip();
    void staysAsLarge();
    void takesParent();
    void textFits_data();
    void textFits();
    void logo_data();
    void logo();

    void link_data();
    void link();
    void opensNothingByItself();
    void pageThatCannotBeOpened_data();
    void pageThatCannotBeOpened();
    void escapeCloses();
    void frameCloses();

    void menuShowsModalDialog();
    void menuLeavesNoTrace();
    void menuShowsFreshDialogEachTime();
};

void TestAbout::widget_data()
{
    QTest::addColumn<int>("position");
    for (int position = 0; position < aboutWidgets().size(); ++position)
        QTest::newRow(aboutWidgets().at(position).name) << position;
}

void TestAbout::widget()
{
    QFETCH(const int, position);
    const AboutWidget &expected = aboutWidgets().at(position);
    const Form form;
    const auto found = form.dialog.findChildren<QWidget *>(expected.name);
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first()->metaObject()->className(), expected.type);
    QCOMPARE(found.first()->parent(), &form.dialog);
    QCOMPARE(found.first()->geometry(), expected.rect);
    QCOMPARE(found.first()->property("text").toString(), QString(expected.text));
    QVERIFY(found.first()->isEnabled());
    QVERIFY(!found.first()->isHidden());
}

void TestAbout::childrenStandInOrder()
{
    const Form form;
    QCOMPARE(namesOf(form.dialog.children()), allNames());
}

void TestAbout::pointersStandInOrder()
{
    const Form form;
    constexpr std::size_t Count = sizeof(Ui_Dialog) / sizeof(void *);
    std::array<QObject *, Count> pointers{};
    std::memcpy(pointers.data(), &form.ui, sizeof form.ui);
    QObjectList objects;
    for (QObject *pointer : pointers)
        objects += pointer;
    QCOMPARE(namesOf(objects), allNames());
}

void TestAbout::formHasFixedSize()
{
    const Form form;
    QCOMPARE(form.dialog.objectName(), QString("Dialog"));
    QCOMPARE(form.dialog.size(), QSize(400, 402));
    QCOMPARE(form.dialog.minimumSize(), QSize(400, 402));
    QCOMPARE(form.dialog.maximumSize(), QSize(400, 402));
    QCOMPARE(form.dialog.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(form.dialog.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(!form.dialog.layout());
}

void TestAbout::formIsInArial()
{
    const Form form;
    QCOMPARE(form.dialog.font().family(), QString("Arial"));
    QCOMPARE(form.dialog.font().pointSize(), 8);
    for (const QWidget *widget : form.dialog.findChildren<QWidget *>())
        QCOMPARE(widget->font().family(), QString("Arial"));
}

void TestAbout::buttonFont_data()
{
    QTest::addColumn<bool>("namesArialItself");
    QTest::newRow("checkupdates") << false;
    QTest::newRow("support") << true;
    QTest::newRow("vdjwebsite") << true;
    QTest::newRow("pushButton") << false;
    QTest::newRow("tlcforum") << false;
}

void TestAbout::buttonFont()
{
    QFETCH(const bool, namesArialItself);
    Form form;
    const QPushButton *button = buttonOf(form.dialog, QTest::currentDataTag());
    QCOMPARE(button->font().pointSize(), 10);

    QFont other("Courier");
    other.setPointSize(20);
    form.dialog.setFont(other);
    QCOMPARE(button->font().family(), QString(namesArialItself ? "Arial" : "Courier"));
    QCOMPARE(button->font().pointSize(), 10);
}

void TestAbout::firstLogoFillsNoBackground()
{
    const Form form;
    QVERIFY(!form.ui.label->autoFillBackground());
}

void TestAbout::formConnectsSlotsByName()
{
    DialogWithSlot dialog;
    Ui_Dialog ui;
    ui.setupUi(&dialog);
    ui.support->click();
    QCOMPARE(dialog.clicks, 1);
}

void TestAbout::isDialog()
{
    QCOMPARE(Dialog::staticMetaObject.className(), "Dialog");
    QCOMPARE(Dialog::staticMetaObject.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(sizeof(Dialog), sizeof(QDialog) + sizeof(void *));
}

void TestAbout::slotsStandInOrder()
{
    const QMetaObject &meta = Dialog::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), QMetaMethod::Private);
        QCOMPARE(method.typeName(), "void");
        names += method.methodSignature();
    }
    QCOMPARE(names,
             (QStringList{"on_checkupdates_clicked()", "on_support_clicked()", "on_vdjwebsite_clicked()",
                          "on_pushButton_clicked()", "on_tlcforum_clicked()"}));
}

void TestAbout::builtByProgram_data()
{
    widget_data();
}

void TestAbout::builtByProgram()
{
    QFETCH(const int, position);
    const AboutWidget &expected = aboutWidgets().at(position);
    Dialog dialog(nullptr);
    dialog.show();
    QCOMPARE(namesOf(dialog.children()), allNames());
    const auto *widget = dialog.findChild<QWidget *>(expected.name);
    QCOMPARE(widget->geometry(), expected.rect);
    QCOMPARE(widget->property("text").toString(), QString(expected.text));
    QCOMPARE(widget->font().family(), QString("Arial"));
    if (widget->inherits("QPushButton"))
        QCOMPARE(widget->font().pointSize(), 10);
    QVERIFY(widget->isVisible());
    QVERIFY(widget->isEnabled());
}

void TestAbout::titleAndSheet()
{
    const Dialog dialog(nullptr);
    QCOMPARE(dialog.objectName(), QString("Dialog"));
    QCOMPARE(dialog.windowTitle(), QString("Zarvex - About"));
    QCOMPARE(dialog.styleSheet(),
             QString("QDialog {border:1px solid #606060; background-color: black; }"
                     "QLabel {color: #aaaaaa; background-color:transparent;}"
                     "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
                     "QPushButton:hover {color: #ffffff; background-color: #404040;"
                     "border: 1px solid #606060;}"));
    for (const QWidget *child : dialog.findChildren<QWidget *>())
        QCOMPARE(child->styleSheet(), QString());
}

void TestAbout::hasNoHelpAndNoGrip()
{
    Dialog dialog(nullptr);
    dialog.show();
    QCOMPARE(dialog.windowType(), Qt::Dialog);
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QVERIFY(!dialog.isSizeGripEnabled());
    QVERIFY(!dialog.findChild<QSizeGrip *>());
}

void TestAbout::staysAsLarge()
{
    Dialog dialog(nullptr);
    dialog.show();
    for (const QSize size : {QSize(1000, 1000), QSize(10, 10)}) {
        dialog.resize(size);
        QCOMPARE(dialog.size(), QSize(400, 402));
    }
}

void TestAbout::takesParent()
{
    QWidget window;
    const Dialog dialog(&window);
    QCOMPARE(dialog.parent(), &window);
    QVERIFY(dialog.isWindow());
}

void TestAbout::textFits_data()
{
    widget_data();
}

void TestAbout::textFits()
{
    QFETCH(const int, position);
    Dialog dialog(nullptr);
    dialog.show();
    const auto *widget = dialog.findChild<QWidget *>(aboutWidgets().at(position).name);
    const QString text = widget->property("text").toString();
    const QSize needed =
        widget->inherits("QLabel") ? widget->sizeHint() : widget->fontMetrics().size(0, text);
    QVERIFY2(needed.width() <= widget->width() && needed.height() <= widget->height(),
             qPrintable(QString("needs %1 by %2").arg(needed.width()).arg(needed.height())));
}

void TestAbout::logo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<int>("width");
    QTest::newRow("maker") << "label"
                           << ":/icons/Images/quelvarlogo.png" << 60;
    QTest::newRow("product") << "label_5"
                             << ":/icons/Images/zarvexlogo.png" << 200;
}

void TestAbout::logo()
{
    QFETCH(const QString, name);
    QFETCH(const QString, picture);
    QFETCH(const int, width);
    const QImage image(picture);
    QVERIFY(!image.isNull());

    Dialog dialog(nullptr);
    dialog.show();
    auto *label = dialog.findChild<QLabel *>(name);
    QVERIFY(label);
    const QRect painted = paintedPart(dialog.grab(label->geometry()).toImage());
    QVERIFY(painted.width() > width * 8 / 10);
    QVERIFY(painted.width() <= width);
    QVERIFY(painted.height() <= image.height() * width / image.width() + 1);
    QVERIFY(qAbs(painted.center().x() - label->width() / 2) < width / 10);
}

void TestAbout::link_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<QString>("query");

    const QString virtualDj(ZARVEX_VIRTUALDJ_SITE);
    const QString number(ZARVEX_ADDON_NUMBER);
    QTest::newRow("checkupdates") << virtualDj + "/plugins/index.html?addonid=" + number << "https"
                                  << "addonid=" + number;
    QTest::newRow("support") << virtualDj + "/forums/234014/Addons/Zarvex.html"
                             << "https" << QString();
    QTest::newRow("vdjwebsite") << virtualDj << "https" << QString();
    QTest::newRow("pushButton") << QString(ZARVEX_OS2L_SITE) + "/"
                                << "http" << QString();
    QTest::newRow("tlcforum") << QString(ZARVEX_LIGHTING_SITE) << "https" << QString();
}

void TestAbout::link()
{
    QFETCH(const QString, page);
    QFETCH(const QString, scheme);
    QFETCH(const QString, query);
    const Browser browser;
    Dialog dialog(nullptr);
    dialog.show();
    QPushButton *button = buttonOf(dialog, QTest::currentDataTag());

    for (int click = 1; click <= 2; ++click) {
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(browser.pages.size(), click);
        QCOMPARE(browser.pages.last().toString(), page);
        QCOMPARE(browser.pages.last().scheme(), scheme);
        QCOMPARE(browser.pages.last().query(), query);
        QVERIFY(browser.pages.last().isValid());
        QVERIFY(dialog.isVisible());
    }
}

void TestAbout::opensNothingByItself()
{
    const Browser browser;
    Dialog dialog(nullptr);
    dialog.show();
    QTest::mouseClick(&dialog, Qt::LeftButton, {}, QPoint(45, 340));
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        QTest::mouseClick(&dialog, Qt::LeftButton, {}, label->geometry().center());
    dialog.close();
    QVERIFY(browser.pages.isEmpty());
}

void TestAbout::pageThatCannotBeOpened_data()
{
    QTest::addColumn<QString>("button");
    for (const char *name : {"checkupdates", "support", "vdjwebsite", "pushButton", "tlcforum"})
        QTest::newRow(name) << name;
}

void TestAbout::pageThatCannotBeOpened()
{
    QFETCH(const QString, button);
    const ExpectedDialogs dialogs;
    const Browser browser("refuse");
    Dialog dialog(nullptr);
    dialog.show();
    const int windows = QApplication::topLevelWidgets().size();

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such method Browser::refuse"));
    QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(dialog.isVisible());
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QCOMPARE(dialogs.faults(), QString());
}

void TestAbout::escapeCloses()
{
    Dialog dialog(nullptr);
    dialog.setModal(true);
    bool hasShown = false;
    QTimer::singleShot(0, &dialog, [&dialog, &hasShown] {
        hasShown = dialog.isVisible();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(hasShown);
    QVERIFY(!dialog.isVisible());
}

void TestAbout::frameCloses()
{
    Dialog dialog(nullptr);
    QTimer::singleShot(0, &dialog, &QWidget::close);
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

void TestAbout::menuShowsModalDialog()
{
    Workspace space;
    space.window();
    space.dialogs.tolerate("Zarvex - About");
    QPointer<Dialog> seen;
    bool isModal = false;
    QObject *parent = &space.window();
    const Watcher watcher([&](Dialog &dialog) {
        seen = &dialog;
        isModal = dialog.windowModality() == Qt::ApplicationModal;
        parent = dialog.parent();
    });

    space.trigger("actionAbout");
    QVERIFY(isModal);
    QVERIFY(!parent);
    QVERIFY(!seen);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestAbout::menuLeavesNoTrace()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.putOnPad(3, 1));
    space.dialogs.tolerate("Zarvex - About");
    const QStringList before = space.snapshot();
    const int windows = QApplication::topLevelWidgets().size();
    int shown = 0;
    const Watcher watcher([&shown](Dialog & /*dialog*/) { ++shown; });

    space.trigger("actionAbout");
    QCOMPARE(shown, 1);
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    for (const QWidget *widget : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<const Dialog *>(widget));
    QVERIFY(space.window().isVisible());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestAbout::menuShowsFreshDialogEachTime()
{
    Workspace space;
    space.window();
    space.dialogs.tolerate("Zarvex - About");
    int shown = 0;
    const Watcher watcher([&shown](Dialog & /*dialog*/) { ++shown; });
    space.trigger("actionAbout");
    QVERIFY(space.call("on_actionAbout_triggered"));
    QCOMPARE(shown, 2);
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestAbout)
#include "test_about.moc"
