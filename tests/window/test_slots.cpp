#include "support/workspace.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDesktopServices>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>

namespace {

/** The slots of the window as "access type name(parameter types)", in the order of their declaration. */
const QStringList &windowSlots()
{
    static const QStringList list{
        "protected bool loadshowname(QString)",
        "protected bool loadshow()",
        "protected void on_loadini_clicked()",
        "protected void on_actionNew_triggered()",

        "protected void updatecombo()",
        "protected void updatelist(int)",
        "protected void initlist()",
        "protected int buttonsperpage(int)",
        "protected void on_combobox_currentIndexChanged(int)",
        "protected QString getcolor(QString)",
        "protected QString xmlparse(QString)",

        "protected void cleanDMX()",
        "protected void cleanVDJ()",
        "protected void cleanMIDI()",
        "protected void CheckChanged(int,int)",
        "protected void dmxcheckchange(int)",
        "protected void CheckChangedCon(int,int,int)",
        "protected void dmxtoremove(int)",
        "protected void dmxtoremove2(int)",
        "protected bool isVDJempty()",
        "protected bool isMIDIempty()",
        "protected void ondeletevdjaction_triggered()",
        "protected void ondeletemidiaction_triggered(int,int)",
        "protected void ondeleteaction_triggered()",
        "protected void resetdmxlist()",
        "protected void on_cleanmidi_button_clicked()",
        "protected void on_cleanpads_button_clicked()",

        "protected void setstyles()",

        "private void closeEvent(QCloseEvent*)",
        "private void on_pushButton_2_clicked()",
        "private void on_actionAbout_triggered()",
        "private void on_actionExport_triggered()",
        "private void on_radio_outputpage_clicked()",
        "private void on_radio_outputmidi_clicked()",
        "private void on_actionNew_2_triggered()",
        "private void on_actionSave_2_triggered()",
        "private void on_actionLoad_Project_triggered()",
        "private void on_actionExit_triggered()",
        "private void on_actionManual_triggered()",

        "private void updatebankcombo()",
        "private void showbank(int)",
        "private void on_bankcombo_currentIndexChanged(int)",
        "private void on_bankname_editingFinished()",
        "private void on_padsname_editingFinished()",
        "private void on_radioButton_8pads_clicked(bool)",
        "private void on_radioButton_16pads_clicked(bool)",

        "private void rgbpadchange()",
        "private void rgbonpadchange()",
        "private void colorpadchange(int)",
        "private void coloronpadchange(int)",
        "private QString getdeviceoffcolor(int)",
        "private QString getdeviceoncolor(int)",
        "private void onblinkaction_triggered()",
        "private void ontoggleaction_triggered()",
        "private void customMenuRequestedvdj(QPoint)",
        "private void customMenuRequested(QPoint)",

        "private void readdefaultmappers()",
        "private void readmappers()",
        "private void getkeynames(QString,QString)",
        "private int getmapperid(QString,int)",
        "private int getdeviceindex(QString)",
        "private bool deviceinlist(QString)",

        "private QString getpadavail(int,int)",
        "private QString getpadtext(int,int)",
        "private void updatemidicombo(int)",
        "private void initpadlist()",
        "private void updatelayout()",
        "private void on_devicescombo_currentIndexChanged(int)",

        "private bool exportpage()",
        "private QString removeos2l(QString)",
        "private bool exportmapping()",

        "private void savemidiproject(QString)",
        "private void savepadsproject(QString)",
        "private bool loadproject()",
    };
    return list;
}

QString accessName(QMetaMethod::Access access)
{
    switch (access) {
    case QMetaMethod::Private:
        return "private";
    case QMetaMethod::Protected:
        return "protected";
    case QMetaMethod::Public:
        return "public";
    }
    return {};
}

/** The methods that a class itself adds to its base, in the order of their declaration. */
QList<QMetaMethod> ownMethods(const QMetaObject *metaObject)
{
    QList<QMetaMethod> methods;
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i)
        methods += metaObject->method(i);
    return methods;
}

/** Arguments of any type that a slot of the window takes. */
class Arguments final
{
public:
    explicit Arguments(const QMetaMethod &method)
    {
        for (const QByteArray &type : method.parameterTypes()) {
            if (type == "int")
                m_arguments += Q_ARG(int, m_number);
            else if (type == "bool")
                m_arguments += Q_ARG(bool, m_flag);
            else if (type == "QString")
                m_arguments += Q_ARG(QString, m_text);
            else if (type == "QPoint")
                m_arguments += Q_ARG(QPoint, m_point);
            else if (type == "QCloseEvent*")
                m_arguments += Q_ARG(QCloseEvent *, m_event);
        }
    }

    QGenericArgument at(int i) const { return m_arguments.value(i); }
    int count() const { return m_arguments.size(); }

private:
    int m_number = 0;
    bool m_flag = true;
    QString m_text;
    QPoint m_point;
    QCloseEvent m_closing;
    QCloseEvent *m_event = &m_closing;
    QList<QGenericArgument> m_arguments;
};

/** Closes every menu that pops up, and takes the web pages and files that the desktop would open. */
class Doorman final : public QObject
{
    Q_OBJECT

public:
    Doorman()
    {
        qApp->installEventFilter(this);
        for (const char *scheme : {"file", "http", "https"})
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }

    ~Doorman() override
    {
        for (const char *scheme : {"file", "http", "https"})
            QDesktopServices::unsetUrlHandler(scheme);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && watched->inherits("QMenu"))
            QMetaObject::invokeMethod(watched, "close", Qt::QueuedConnection);
        return false;
    }

public slots:
    void take(const QUrl & /*url*/) {}
};

/** A widget, an action, or as "model of <view>" the model of a table. */
QObject *participant(Workspace &space, const QString &name)
{
    const QString model = "model of ";
    if (name.startsWith(model))
        return space.find<QTableView>(name.mid(model.size()).toLatin1())->model();
    return space.find<QObject>(name.toLatin1());
}

} // namespace

/** What the meta-object knows: slots and signals by name, and who is connected to whom. */
class TestSlots final : public QObject
{
    Q_OBJECT

private slots:
    void listOfSlots();
    void onlySlots();
    void parametersHaveNoDefaults();
    void callByName_data();
    void callByName();
    void result_data();
    void result();

    void className_data();
    void className();
    void signalsOf_data();
    void signalsOf();

    void slotByObjectName_data();
    void slotByObjectName();
    void explicitConnection_data();
    void explicitConnection();
    void saveHasNoSlot();
    void itemMovedIsNotConnected();

    void itemDropedTicks();
    void itemUncheckedEmptiesPads();
    void itemToUncheckUnticks();
    void gridItemDropedTicksAndSelects();
    void gridItemToUncheckUnticks();
};

void TestSlots::listOfSlots()
{
    QStringList found;
    for (const QMetaMethod &method : ownMethods(&MainWindow::staticMetaObject)) {
        found += QString("%1 %2 %3")
                     .arg(accessName(method.access()), QString(method.typeName()),
                          QString(method.methodSignature()));
    }
    for (int i = 0; i < qMin(found.size(), windowSlots().size()); ++i)
        QCOMPARE(found.at(i), windowSlots().at(i));
    QCOMPARE(found.size(), windowSlots().size());
}

void TestSlots::onlySlots()
{
    const QMetaObject &metaObject = MainWindow::staticMetaObject;
    for (const QMetaMethod &method : ownMethods(&metaObject))
        QVERIFY2(method.methodType() == QMetaMethod::Slot, method.methodSignature());
    QCOMPARE(metaObject.constructorCount(), 0);
    QCOMPARE(metaObject.propertyCount(), metaObject.propertyOffset());
    QCOMPARE(metaObject.enumeratorCount(), metaObject.enumeratorOffset());
}

void TestSlots::parametersHaveNoDefaults()
{
    for (const QMetaMethod &method : ownMethods(&MainWindow::staticMetaObject))
        QVERIFY2(!(method.attributes() & QMetaMethod::Cloned), method.methodSignature());
}

void TestSlots::callByName_data()
{
    QTest::addColumn<int>("position");
    for (int i = 0; i < windowSlots().size(); ++i)
        QTest::newRow(windowSlots().at(i).section(' ', 2).toLatin1()) << i;
}

void TestSlots::callByName()
{
    QFETCH(const int, position);
    const QByteArray signature = windowSlots().at(position).section(' ', 2).toLatin1();
    const Doorman doorman;
    Workspace space;
    MainWindow &window = space.window();

    const int index = window.metaObject()->indexOfSlot(signature);
    QVERIFY2(index >= 0, signature);
    const QMetaMethod method = window.metaObject()->method(index);
    const Arguments arguments(method);
    QCOMPARE(arguments.count(), method.parameterCount());
    QVERIFY(QMetaObject::invokeMethod(&window, method.name(), Qt::DirectConnection, arguments.at(0),
                                      arguments.at(1), arguments.at(2)));
}

void TestSlots::result_data()
{
    QTest::addColumn<QString>("result");
    QTest::newRow("getcolor") << "#0000FF";
    QTest::newRow("xmlparse") << "FF";
    QTest::newRow("removeos2l") << "FF";
    QTest::newRow("deviceinlist") << "false";
    QTest::newRow("getdeviceindex") << "-1";
    QTest::newRow("buttonsperpage") << "0";
    QTest::newRow("isVDJempty") << "true";
    QTest::newRow("isMIDIempty") << "true";
    QTest::newRow("loadshowname") << "false";
    QTest::newRow("getpadtext") << "PAD 1";
    QTest::newRow("getpadavail") << "1";
}

void TestSlots::result()
{
    QFETCH(const QString, result);
    Workspace space;
    const QByteArray slot = QTest::currentDataTag();
    QVariant found;
    if (slot == "getpadtext" || slot == "getpadavail")
        found = space.ask<QString>(slot, 2, 2);
    else if (slot.startsWith("is"))
        found = space.ask<bool>(slot);
    else if (slot == "deviceinlist" || slot == "loadshowname")
        found = space.ask<bool>(slot, QString("FF"));
    else if (slot == "getdeviceindex")
        found = space.ask<int>(slot, QString("FF"));
    else if (slot == "buttonsperpage")
        found = space.ask<int>(slot, 1);
    else
        found = space.ask<QString>(slot, QString("FF"));
    QCOMPARE(found.toString(), result);
}

void TestSlots::className_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("baseName");
    QTest::newRow("MainWindow") << "MainWindow"
                                << "QMainWindow";
    QTest::newRow("model of dmxlistview") << "MyModel"
                                          << "QAbstractTableModel";
    QTest::newRow("model of vdjlistview") << "VDJModel"
                                          << "QAbstractTableModel";
    QTest::newRow("model of tablecontroller") << "Controller"
                                              << "QAbstractTableModel";
    QTest::newRow("delegate") << "Mydelegate"
                              << "QStyledItemDelegate";
}

void TestSlots::className()
{
    QFETCH(const QString, className);
    QFETCH(const QString, baseName);
    Workspace space;
    const QString name = QTest::currentDataTag();
    const QObject *object = name == "MainWindow" ? &space.window()
                            : name == "delegate" ? static_cast<QObject *>(space.gridView()->itemDelegate())
                                                 : participant(space, name);
    QCOMPARE(QString(object->metaObject()->className()), className);
    QCOMPARE(QString(object->metaObject()->superClass()->className()), baseName);
    if (name != "MainWindow")
        QCOMPARE(object->parent(), &space.window());
}

void TestSlots::signalsOf_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("model of dmxlistview") << QStringList{"ItemUnchecked(int) index"};
    QTest::newRow("model of vdjlistview")
        << QStringList{"ItemDroped(int,int) index,to", "ItemMoved(int) to", "ItemToUncheck(int) to"};
    QTest::newRow("model of tablecontroller")
        << QStringList{"ItemDroped(int,int,int) index,to,col", "ItemToUncheck(int) to"};
    QTest::newRow("delegate") << QStringList();
}

void TestSlots::signalsOf()
{
    QFETCH(const QStringList, expected);
    Workspace space;
    const QString name = QTest::currentDataTag();
    const QObject *object = name == "delegate" ? static_cast<QObject *>(space.gridView()->itemDelegate())
                                               : participant(space, name);
    QStringList found;
    for (const QMetaMethod &method : ownMethods(object->metaObject())) {
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        QCOMPARE(method.returnType(), int(QMetaType::Void));
        found += QString("%1 %2").arg(QString(method.methodSignature()),
                                      QString(method.parameterNames().join(',')));
    }
    QCOMPARE(found, expected);
}

void TestSlots::slotByObjectName_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QByteArray>("signature");
    for (const char *slot : {
             "loadini clicked()",
             "combobox currentIndexChanged(int)",
             "bankcombo currentIndexChanged(int)",
             "bankname editingFinished()",
             "pushButton_2 clicked()",
             "padsname editingFinished()",
             "actionNew triggered()",
             "actionAbout triggered()",
             "actionExport triggered()",
             "radio_outputpage clicked()",
             "radio_outputmidi clicked()",
             "devicescombo currentIndexChanged(int)",
             "actionNew_2 triggered()",
             "radioButton_8pads clicked(bool)",
             "radioButton_16pads clicked(bool)",
             "actionSave_2 triggered()",
             "actionLoad_Project triggered()",
             "actionExit triggered()",
             "cleanmidi_button clicked()",
             "cleanpads_button clicked()",
             "actionManual triggered()",
         }) {
        const QList<QByteArray> parts = QByteArray(slot).split(' ');
        QTest::newRow(slot) << parts.first() << parts.last();
    }
}

void TestSlots::slotByObjectName()
{
    QFETCH(const QByteArray, object);
    QFETCH(const QByteArray, signature);
    Workspace space;
    auto *sender = space.find<QObject>(object);
    // The names in the forms that SIGNAL() and SLOT() give them.
    const QByteArray signal = QByteArray::number(QSIGNAL_CODE) + signature;
    const QByteArray slot = QByteArray::number(QSLOT_CODE) + "on_" + object + "_" + signature;

    QVERIFY(QObject::disconnect(sender, signal, &space.window(), slot));
    QVERIFY2(!QObject::disconnect(sender, signal, &space.window(), nullptr), "connected to another slot too");
}

void TestSlots::explicitConnection_data()
{
    QTest::addColumn<QString>("sender");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<bool>("isConnected");
    QTest::newRow("menu of the grid")
        << "tablecontroller" << QByteArray(SIGNAL(customContextMenuRequested(QPoint))) << true;
    QTest::newRow("menu of the pads")
        << "vdjlistview" << QByteArray(SIGNAL(customContextMenuRequested(QPoint))) << true;
    QTest::newRow("drop on a pad") << "model of vdjlistview" << QByteArray(SIGNAL(ItemDroped(int, int)))
                                   << true;
    QTest::newRow("tick taken off a Live Button")
        << "model of dmxlistview" << QByteArray(SIGNAL(ItemUnchecked(int))) << true;
    QTest::newRow("replaced on a pad")
        << "model of vdjlistview" << QByteArray(SIGNAL(ItemToUncheck(int))) << true;
    QTest::newRow("drop on a key") << "model of tablecontroller"
                                   << QByteArray(SIGNAL(ItemDroped(int, int, int))) << true;
    QTest::newRow("replaced on a key")
        << "model of tablecontroller" << QByteArray(SIGNAL(ItemToUncheck(int))) << true;
    QTest::newRow("moved pad, by design")
        << "model of vdjlistview" << QByteArray(SIGNAL(ItemMoved(int))) << false;
    QTest::newRow("menu of the Live Buttons")
        << "dmxlistview" << QByteArray(SIGNAL(customContextMenuRequested(QPoint))) << false;
}

void TestSlots::explicitConnection()
{
    QFETCH(const QString, sender);
    QFETCH(const QByteArray, signal);
    QFETCH(const bool, isConnected);
    Workspace space;
    QObject *object = participant(space, sender);
    QCOMPARE(QObject::disconnect(object, QMetaObject::normalizedSignature(signal), &space.window(), nullptr),
             isConnected);
}

void TestSlots::saveHasNoSlot()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    const QStringList before = space.snapshot();
    auto *save = space.find<QAction>("actionSave");
    save->trigger();
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QVERIFY(!QObject::disconnect(save, SIGNAL(triggered(bool)), &space.window(), nullptr));
}

void TestSlots::itemMovedIsNotConnected()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.putOnPad(3, 0));
    const QStringList before = space.snapshot();
    QVERIFY(QMetaObject::invokeMethod(space.pads(), "ItemMoved", Q_ARG(int, 3)));
    QCOMPARE(space.snapshot(), before);
}

void TestSlots::itemDropedTicks()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(QMetaObject::invokeMethod(space.pads(), "ItemDroped", Q_ARG(int, 3), Q_ARG(int, 0)));
    QCOMPARE(space.ticked(), QList<int>{3});
}

void TestSlots::itemUncheckedEmptiesPads()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(QMetaObject::invokeMethod(space.dmx(), "ItemUnchecked", Q_ARG(int, 3)));
    QVERIFY(space.ask<bool>("isVDJempty"));
}

void TestSlots::itemToUncheckUnticks()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(QMetaObject::invokeMethod(space.pads(), "ItemDroped", Q_ARG(int, 3), Q_ARG(int, 0)));
    QVERIFY(QMetaObject::invokeMethod(space.pads(), "ItemToUncheck", Q_ARG(int, 3)));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.window().focusWidget(), space.padsView());
}

void TestSlots::gridItemDropedTicksAndSelects()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(
        QMetaObject::invokeMethod(space.grid(), "ItemDroped", Q_ARG(int, 3), Q_ARG(int, 4), Q_ARG(int, 5)));
    QCOMPARE(space.ticked(), QList<int>{3});
    QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(4, 5));
}

void TestSlots::gridItemToUncheckUnticks()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(
        QMetaObject::invokeMethod(space.grid(), "ItemDroped", Q_ARG(int, 3), Q_ARG(int, 4), Q_ARG(int, 5)));
    QVERIFY(QMetaObject::invokeMethod(space.grid(), "ItemToUncheck", Q_ARG(int, 3)));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.window().focusWidget(), space.gridView());
}

QTEST_MAIN(TestSlots)
#include "test_slots.moc"
