#include "app/dialog.h"
#include "support/texts.h"
#include "support/workspace.h"
#include "ui_dialog.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QSizeGrip>
#include <QUrl>

#include <array>
#include <cstring>

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
const QVector<AboutWidget> AboutWidgets{
    {"checkupdates", "QPushButton", {90, 150, 231, 31}, "Check for Updates"},
    {"support", "QPushButton", {90, 190, 231, 31}, "Support"},
    {"vdjwebsite", "QPushButton", {90, 230, 231, 31}, "VirtualDJ Website"},
    {"label",
     "QLabel",
     {20, 10, 81, 61},
     R"(<html><head/><body><p align="center"><img src=":/icons/Images/quelvarlogo.png" width="60"/></p></body></html>)"},
    {"label_3", "QLabel", {20, 70, 331, 31}, "Create a VirtualDJ Pads page with you Light Show Live buttons"},
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

const char Sheet[] = "QDialog {border:1px solid #606060; background-color: black; }"
                     "QLabel {color: #aaaaaa; background-color:transparent;}"
                     "QPushButton {color: #cccccc; background-color: #303030;border: 1px solid #505050;}"
                     "QPushButton:hover {color: #ffffff; background-color: #404040;"
                     "border: 1px solid #606060;}";

QStringList allNames()
{
    QStringList names;
    for (const AboutWidget &widget : AboutWidgets)
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
    Watcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<Dialog *>(watched);
        if (dialog && event->type() == QEvent::Show) {
            ++shown;
            last = dialog;
            isModal = dialog->windowModality() == Qt::ApplicationModal;
            hasParent = dialog->parent();
        }
        return false;
    }

    int shown = 0;
    QPointer<Dialog> last;
    bool isModal = false;
    bool hasParent = true;
};

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
    void standsInOrder();
    void formHasFixedSize();
    void formConnectsSlotsByName();
    void buttonFont_data();
    void buttonFont();

    void slotsStandInOrder();
    void widget_data();
    void widget();
    void dialogIsDressed();
    void textFits_data();
    void textFits();
    void logo_data();
    void logo();

    void link_data();
    void link();
    void opensNothingByItself();
    void pageThatCannotBeOpened();
    void leaving_data();
    void leaving();
    void menuShowsFreshModalDialogs();
};

void TestAbout::standsInOrder()
{
    const Form form;
    QCOMPARE(namesOf(form.dialog.children()), allNames());
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
    QCOMPARE(form.dialog.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(form.dialog.font().pointSize(), 8);
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
    form.dialog.setFont(QFont("Courier", 20));
    const QFont font = form.dialog.findChild<QPushButton *>(QTest::currentDataTag())->font();
    QCOMPARE(font.family(), QString(namesArialItself ? "Arial" : "Courier"));
    QCOMPARE(font.pointSize(), 10);
}

void TestAbout::slotsStandInOrder()
{
    const QMetaObject &meta = Dialog::staticMetaObject;
    QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(sizeof(Dialog), sizeof(QDialog) + sizeof(void *));
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).access(), QMetaMethod::Private);
        names += meta.method(i).methodSignature();
    }
    QCOMPARE(names,
             (QStringList{"on_checkupdates_clicked()", "on_support_clicked()", "on_vdjwebsite_clicked()",
                          "on_pushButton_clicked()", "on_tlcforum_clicked()"}));
}

void TestAbout::widget_data()
{
    QTest::addColumn<int>("position");
    for (int position = 0; position < AboutWidgets.size(); ++position)
        QTest::newRow(AboutWidgets.at(position).name) << position;
}

void TestAbout::widget()
{
    QFETCH(const int, position);
    const AboutWidget &expected = AboutWidgets.at(position);
    Dialog dialog(nullptr);
    dialog.show();
    const auto *widget = dialog.findChild<QWidget *>(expected.name);
    QVERIFY(widget);
    QCOMPARE(widget->metaObject()->className(), expected.type);
    QCOMPARE(widget->geometry(), expected.rect);
    QCOMPARE(widget->property("text").toString(), QString(expected.text));
    QCOMPARE(widget->font().family(), QString("Arial"));
    QVERIFY(widget->isVisible() && widget->isEnabled());
}

void TestAbout::dialogIsDressed()
{
    QWidget window;
    Dialog dialog(&window);
    dialog.show();
    QCOMPARE(dialog.parent(), &window);
    QCOMPARE(dialog.windowTitle(), Texts::About);
    QCOMPARE(dialog.styleSheet(), QString(Sheet));
    QCOMPARE(dialog.windowType(), Qt::Dialog);
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QVERIFY(!dialog.isSizeGripEnabled());
    QVERIFY(!dialog.findChild<QSizeGrip *>());
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
    const auto *widget = dialog.findChild<QWidget *>(AboutWidgets.at(position).name);
    const QString text = widget->property("text").toString();
    const QSize needed =
        widget->inherits("QLabel") ? widget->sizeHint() : widget->fontMetrics().size(0, text);
    QVERIFY2(needed.width() <= widget->width() && needed.height() <= widget->height(),
             qPrintable(QString("needs %1 by %2").arg(needed.width()).arg(needed.height())));
}

void TestAbout::logo_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<int>("width");
    QTest::newRow("label") << ":/icons/Images/quelvarlogo.png" << 60;
    QTest::newRow("label_5") << ":/icons/Images/zarvexlogo.png" << 200;
}

void TestAbout::logo()
{
    QFETCH(const QString, picture);
    QFETCH(const int, width);
    const QImage image(picture);
    QVERIFY(!image.isNull());
    Dialog dialog(nullptr);
    dialog.show();
    const auto *label = dialog.findChild<QLabel *>(QTest::currentDataTag());
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
    const QString virtualDj(ZARVEX_VIRTUALDJ_SITE);
    QTest::newRow("checkupdates") << virtualDj + "/plugins/index.html?addonid=" + ZARVEX_ADDON_NUMBER
                                  << "https";
    QTest::newRow("support") << virtualDj + "/forums/234014/Addons/Zarvex.html"
                             << "https";
    QTest::newRow("vdjwebsite") << virtualDj << "https";
    QTest::newRow("pushButton") << QString(ZARVEX_OS2L_SITE) + "/"
                                << "http";
    QTest::newRow("tlcforum") << QString(ZARVEX_LIGHTING_SITE) << "https";
}

void TestAbout::link()
{
    QFETCH(const QString, page);
    QFETCH(const QString, scheme);
    const Browser browser;
    Dialog dialog(nullptr);
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton *>(QTest::currentDataTag()), Qt::LeftButton);
    QCOMPARE(browser.pages.size(), 1);
    QCOMPARE(browser.pages.first().toString(), page);
    QCOMPARE(browser.pages.first().scheme(), scheme);
    QVERIFY(browser.pages.first().isValid());
    QVERIFY(dialog.isVisible());
}

void TestAbout::opensNothingByItself()
{
    const Browser browser;
    Dialog dialog(nullptr);
    dialog.show();
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        QTest::mouseClick(&dialog, Qt::LeftButton, {}, label->geometry().center());
    dialog.close();
    QVERIFY(browser.pages.isEmpty());
}

void TestAbout::pageThatCannotBeOpened()
{
    const ExpectedDialogs dialogs;
    const Browser browser("refuse");
    Dialog dialog(nullptr);
    dialog.show();
    const int windows = QApplication::topLevelWidgets().size();
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such method Browser::refuse"));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QCoreApplication::processEvents();
    QVERIFY(dialog.isVisible());
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QCOMPARE(dialogs.faults(), QString());
}

void TestAbout::leaving_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Escape") << true;
    QTest::newRow("frame") << false;
}

void TestAbout::leaving()
{
    QFETCH(const bool, byKey);
    Dialog dialog(nullptr);
    QTimer::singleShot(0, &dialog, [&dialog, byKey] {
        if (byKey)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.close();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

void TestAbout::menuShowsFreshModalDialogs()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.putOnPad(3, 1));
    space.dialogs.tolerate(Texts::About);
    const QStringList before = space.snapshot();
    const Watcher watcher;
    space.trigger("actionAbout");
    QVERIFY(space.call("on_actionAbout_triggered"));
    QCOMPARE(watcher.shown, 2);
    QVERIFY(watcher.isModal);
    QVERIFY(!watcher.hasParent);
    QVERIFY(!watcher.last); // it is gone
    QCOMPARE(space.snapshot(), before);
    QVERIFY(space.window().isVisible());
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestAbout)
#include "test_about.moc"
