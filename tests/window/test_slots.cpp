#include "support/workspace.h"

#include <QAction>
#include <QCloseEvent>
#include <QDesktopServices>
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
class Bystander final : public QObject
{
    Q_OBJECT

public:
    Bystander()
    {
        qApp->installEventFilter(this);
        for (const char *scheme : {"file", "http", "https"})
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }

    ~Bystander() override
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
    void callByName_data();
    void callByName();
    void result();

    void classes_data();
    void classes();

    void slotByObjectName_data();
    void slotByObjectName();
    void explicitConnection_data();
    void explicitConnection();
};

void TestSlots::listOfSlots()
{
    const QMetaObject &metaObject = MainWindow::staticMetaObject;
    QStringList found;
    for (const QMetaMethod &method : ownMethods(&metaObject)) {
        QVERIFY2(method.methodType() == QMetaMethod::Slot, method.methodSignature());
        QVERIFY2(!(method.attributes() & QMetaMethod::Cloned),
                 method.methodSignature()); // no default arguments
        found += accessName(method.access()) + ' ' + method.typeName() + ' ' + method.methodSignature();
    }
    QCOMPARE(found, windowSlots());
    QCOMPARE(metaObject.constructorCount(), 0);
    QCOMPARE(metaObject.propertyCount(), metaObject.propertyOffset());
    QCOMPARE(metaObject.enumeratorCount(), metaObject.enumeratorOffset());
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
    const Bystander bystander;
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

void TestSlots::result()
{
    Workspace space;
    QCOMPARE(space.ask<QString>("getcolor", QString("FF")), QString("#0000FF"));
    QCOMPARE(space.ask<QString>("xmlparse", QString("a 'b' & c")), QString("a &apos;b&apos; &amp; c"));
    QCOMPARE(space.ask<QString>("removeos2l", QString("var '$os2l' ? nothing : play")), QString("play"));
    QCOMPARE(space.ask<bool>("deviceinlist", QString("FF")), false);
    QCOMPARE(space.ask<int>("getdeviceindex", QString("FF")), -1);
    QCOMPARE(space.ask<int>("buttonsperpage", 1), 0);
    QCOMPARE(space.ask<bool>("isVDJempty"), true);
    QCOMPARE(space.ask<bool>("isMIDIempty"), true);
    QCOMPARE(space.ask<bool>("loadshowname", QString("FF")), false);
    QCOMPARE(space.ask<QString>("getpadtext", 2, 2), QString("PAD 1"));
    QCOMPARE(space.ask<QString>("getpadavail", 2, 2), QString("1"));
}

void TestSlots::classes_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("baseName");
    QTest::addColumn<QStringList>("signalNames");
    const auto row = [](const char *object, const char *name, const char *base, const QStringList &names) {
        QTest::newRow(object) << QString(name) << QString(base) << names;
    };
    row("model of dmxlistview", "MyModel", "QAbstractTableModel", {"ItemUnchecked(int) index"});
    row("model of vdjlistview", "VDJModel", "QAbstractTableModel",
        {"ItemDroped(int,int) index,to", "ItemMoved(int) to", "ItemToUncheck(int) to"});
    row("model of tablecontroller", "Controller", "QAbstractTableModel",
        {"ItemDroped(int,int,int) index,to,col", "ItemToUncheck(int) to"});
    row("delegate", "Mydelegate", "QStyledItemDelegate", {});
}

void TestSlots::classes()
{
    QFETCH(const QString, className);
    QFETCH(const QString, baseName);
    QFETCH(const QStringList, signalNames);
    Workspace space;
    const QString name = QTest::currentDataTag();
    const QObject *object = name == "delegate" ? static_cast<QObject *>(space.gridView()->itemDelegate())
                                               : participant(space, name);
    QCOMPARE(QString(object->metaObject()->className()), className);
    QCOMPARE(QString(object->metaObject()->superClass()->className()), baseName);
    QCOMPARE(object->parent(), &space.window());
    QStringList found;
    for (const QMetaMethod &method : ownMethods(object->metaObject())) {
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        QCOMPARE(method.returnType(), int(QMetaType::Void));
        found += method.methodSignature() + ' ' + method.parameterNames().join(',');
    }
    QCOMPARE(found, signalNames);
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
    const auto row = [](const char *name, const char *sender, const char *signal, bool isConnected) {
        QTest::newRow(name) << QString(sender) << QByteArray(signal) << isConnected;
    };
    const char menu[] = SIGNAL(customContextMenuRequested(QPoint));
    row("menu of the grid", "tablecontroller", menu, true);
    row("menu of the pads", "vdjlistview", menu, true);
    row("menu of the Live Buttons", "dmxlistview", menu, false);
    row("drop on a pad", "model of vdjlistview", SIGNAL(ItemDroped(int, int)), true);
    row("drop on a key", "model of tablecontroller", SIGNAL(ItemDroped(int, int, int)), true);
    row("replaced on a pad", "model of vdjlistview", SIGNAL(ItemToUncheck(int)), true);
    row("replaced on a key", "model of tablecontroller", SIGNAL(ItemToUncheck(int)), true);
    row("tick taken off a Live Button", "model of dmxlistview", SIGNAL(ItemUnchecked(int)), true);
    row("moved pad, by design", "model of vdjlistview", SIGNAL(ItemMoved(int)), false);
    row("Save, which has no slot", "actionSave", SIGNAL(triggered(bool)), false);
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

QTEST_MAIN(TestSlots)
#include "test_slots.moc"
