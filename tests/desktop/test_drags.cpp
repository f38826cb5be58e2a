#include "desktop/desk.h"

#include <QComboBox>
#include <QProcess>
#include <QRegularExpression>

/**
 * Drags with a real mouse.
 *
 * Pads and keys are never on show together: what lies on one of them cannot be dragged to the other. No bank leaves
 * room below its eight pads, and the list of Live Buttons takes no drop anywhere.
 */
class TestDrags final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pads_data();
    void pads();
    void keys_data();
    void keys();
    void whatCannotBeDragged_data();
    void whatCannotBeDragged();
    void emptiedPadHasTheLabelOfItsRow();
    void emptiedKeyHasItsLabelBack();
    void padOnTheLineBetweenPadsIsNeitherFilledNorEmpty();
    void padInAnotherBank();
    void keyTakesItsColoursAlong();
    void newButtonOnAKeyHasNoColours();
    void switchTakesNoDrop();
    void ofSeveralKeysTheFirstMoves();
    void focusAfterADrop();
    void dragFromAnotherProgramIsRefused_data();
    void dragFromAnotherProgramIsRefused();
    void closingAmidADrag_data();
    void closingAmidADrag();

private:
    std::unique_ptr<Desk> m_desk;
};

namespace {

/**
 * A place by its words: a Live Button by its row ("button 2"), a pad or key by row and column ("pad 0,0", "key 2,2"),
 * the line along its upper edge ("line pad 2,0"), its left end ("end of pad 0,0"), or a place by name.
 */
Place placeOf(Desk &desk, const QString &words)
{
    const QStringList parts = words.split(QRegularExpression("[ ,]"));
    const int col = parts.last().toInt();
    const int row = parts.value(parts.size() - 2).toInt();
    if (words.startsWith("button "))
        return Places::cell(desk.list(), col);
    if (words.startsWith("pad "))
        return Places::cell(desk.pads(), row, col);
    if (words.startsWith("key "))
        return Places::cell(desk.grid(), row, col);
    if (words.startsWith("line pad "))
        return Places::lineAbove(desk.pads(), row, col);
    if (words.startsWith("line key "))
        return Places::lineAbove(desk.grid(), row, col);
    if (words == "below the keys")
        return Places::emptyCorner(desk.grid());
    if (words == "plain window")
        return desk.on("label_4");
    return Places::bareScreen(&desk.space.window());
}

QTableView *viewOf(Desk &desk, const QString &words)
{
    if (words.startsWith("button "))
        return desk.list();
    return words.startsWith("pad ") ? desk.pads() : desk.grid();
}

/**
 * How a drag is done: "", "Escape" on the way, or with a key held, as "shift". It is held from the drag's beginning on,
 * since at the press it would be for the selection of keys.
 */
void drag(Desk &desk, const QString &from, const QString &to, const QString &how = {})
{
    const bool isHeld = !how.isEmpty() && how != "Escape";
    desk.hands.beginDrag(viewOf(desk, from), placeOf(desk, from));
    if (isHeld)
        desk.hands.hold(how);
    if (to == "bare screen")
        desk.hands.dragOut(placeOf(desk, to));
    else
        desk.hands.dragOver(placeOf(desk, to));
    if (how == "Escape")
        desk.hands.keyInDrag(how);
    desk.hands.release();
    if (isHeld)
        desk.hands.letGo(how);
    desk.hands.moveTo(desk.on("label_4"));
}

/** Another Zarvex beside ours, with something on its first pad or nothing on any. */
class SecondZarvex final
{
public:
    explicit SecondZarvex(bool hasWork)
    {
        m_process.start(ZARVEX_SECOND, hasWork ? QStringList{"work"} : QStringList());
    }
    ~SecondZarvex()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY(SecondZarvex)

    Place firstLiveButton() { return placeAt(0); }
    Place firstPad() { return placeAt(1); }
    bool isDragging() { return seen().value(2) == "drag"; }
    QString box() { return seen().value(3); }
    bool hasEnded() const
    {
        return m_process.state() == QProcess::NotRunning && m_process.exitStatus() == QProcess::NormalExit
               && m_process.exitCode() == 0;
    }

private:
    /** The parts of what it has said last. */
    QStringList seen()
    {
        m_said += m_process.readAllStandardOutput();
        return QString(m_said).split('\n').value(m_said.count('\n') - 1).split('|');
    }

    Place placeAt(int part)
    {
        return [this, part]() -> std::optional<QPoint> {
            const QStringList point = seen().value(part).split(',');
            return point.size() == 2 ? std::make_optional(QPoint(point.first().toInt(), point.last().toInt()))
                                     : std::nullopt;
        };
    }

    QProcess m_process;
    QByteArray m_said;
};

/** The keys that are selected, in the words for places. */
QString selectedKeys(Desk &desk)
{
    QStringList keys;
    for (const QModelIndex &key : desk.grid()->selectionModel()->selectedIndexes())
        keys += QString("key %1,%2").arg(key.row()).arg(key.column());
    return keys.join(' ');
}

} // namespace

void TestDrags::pads_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("filled");
    QTest::addColumn<QString>("ticks");
    const QString before = "0,0=1-1 1,0=1-2 2,1=1-3";
    const QString none;

    QTest::newRow("list to an empty pad") << "button 4"
                                          << "pad 3,0" << none << "0,0=1-1 1,0=1-2 2,1=1-3 3,0=1-5"
                                          << "0 1 2 4";
    QTest::newRow("list to a filled pad, which loses its button")
        << "button 4"
        << "pad 0,0" << none << "0,0=1-5 1,0=1-2 2,1=1-3"
        << "1 2 4";
    QTest::newRow("list to an empty pad of the second column")
        << "button 4"
        << "pad 1,1" << none << "0,0=1-1 1,0=1-2 1,1=1-5 2,1=1-3"
        << "0 1 2 4";
    QTest::newRow("list to a filled pad of the second column")
        << "button 4"
        << "pad 2,1" << none << "0,0=1-1 1,0=1-2 2,1=1-5"
        << "0 1 4";
    QTest::newRow("list to the last pad of the bank")
        << "button 4"
        << "pad 7,0" << none << "0,0=1-1 1,0=1-2 2,1=1-3 7,0=1-5"
        << "0 1 2 4";
    QTest::newRow("list to a pad that has the button already") << "button 0"
                                                               << "pad 0,0" << none << before << "0 1 2";
    QTest::newRow("list to the line between pads ticks and lies nowhere")
        << "button 4"
        << "line pad 3,0" << none << before << "0 1 2 4";
    QTest::newRow("list to the list") << "button 4"
                                      << "button 1" << none << before << "0 1 2";
    QTest::newRow("list to the plain window") << "button 4"
                                              << "plain window" << none << before << "0 1 2";
    QTest::newRow("list out of the window") << "button 4"
                                            << "bare screen" << none << before << "0 1 2";
    QTest::newRow("list to a pad, given up by Escape") << "button 4"
                                                       << "pad 3,0"
                                                       << "Escape" << before << "0 1 2";

    QTest::newRow("pad to an empty pad") << "pad 0,0"
                                         << "pad 4,0" << none << "1,0=1-2 2,1=1-3 4,0=1-1"
                                         << "0 1 2";
    QTest::newRow("pad to a filled pad") << "pad 0,0"
                                         << "pad 1,0" << none << "0,0=1-2 1,0=1-1 2,1=1-3"
                                         << "0 1 2";
    QTest::newRow("pad to an empty pad of the second column")
        << "pad 0,0"
        << "pad 4,1" << none << "1,0=1-2 2,1=1-3 4,1=1-1"
        << "0 1 2";
    QTest::newRow("pad to a filled pad of the second column")
        << "pad 0,0"
        << "pad 2,1" << none << "0,0=1-3 1,0=1-2 2,1=1-1"
        << "0 1 2";
    QTest::newRow("pad of the second column to the first") << "pad 2,1"
                                                           << "pad 5,0" << none << "0,0=1-1 1,0=1-2 5,0=1-3"
                                                           << "0 1 2";
    QTest::newRow("pad to itself") << "pad 0,0"
                                   << "pad 0,0" << none << before << "0 1 2";
    QTest::newRow("pad to the list") << "pad 0,0"
                                     << "button 5" << none << before << "0 1 2";
    QTest::newRow("pad to the plain window") << "pad 0,0"
                                             << "plain window" << none << before << "0 1 2";
    QTest::newRow("pad out of the window") << "pad 0,0"
                                           << "bare screen" << none << before << "0 1 2";
    QTest::newRow("pad to an empty pad, given up by Escape") << "pad 0,0"
                                                             << "pad 4,0"
                                                             << "Escape" << before << "0 1 2";
    QTest::newRow("pad to a filled pad, given up by Escape") << "pad 0,0"
                                                             << "pad 1,0"
                                                             << "Escape" << before << "0 1 2";

    for (const QString modifier : {"shift", "ctrl"}) {
        const auto row = [&modifier](const QString &name) -> QTestData & {
            return QTest::newRow(qPrintable(name + " with " + modifier + " held"));
        };
        row("list to an empty pad") << "button 4"
                                    << "pad 3,0" << modifier << "0,0=1-1 1,0=1-2 2,1=1-3 3,0=1-5"
                                    << "0 1 2 4";
        row("list to a filled pad") << "button 4"
                                    << "pad 0,0" << modifier << "0,0=1-5 1,0=1-2 2,1=1-3"
                                    << "1 2 4";
        row("pad to an empty pad") << "pad 0,0"
                                   << "pad 4,0" << modifier << "1,0=1-2 2,1=1-3 4,0=1-1"
                                   << "0 1 2";
        row("pad to a filled pad") << "pad 0,0"
                                   << "pad 1,0" << modifier << "0,0=1-2 1,0=1-1 2,1=1-3"
                                   << "0 1 2";
    }
}

void TestDrags::pads()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, how);
    QFETCH(QString, filled);
    QFETCH(QString, ticks);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads(16));
    QVERIFY(desk.lay(desk.pads(), "0,0=0 1,0=1 2,1=2"));
    const QString filledBefore = Desk::filled(desk.pads());
    const QStringList before = desk.space.snapshot();

    drag(desk, from, to, how);
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.pads()), filled);
    QCOMPARE(desk.ticks(), ticks);
    QCOMPARE(desk.foreignCell(desk.pads()), QString());
    if (filled == filledBefore && ticks == "0 1 2")
        QCOMPARE(desk.space.snapshot(), before);
}

void TestDrags::keys_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("filled");
    QTest::addColumn<QString>("ticks");
    const QString before = "2,2=1-1 2,3=1-2 11,4=1-3";
    const QString none;

    QTest::newRow("list to an empty key") << "button 4"
                                          << "key 4,4" << none << "2,2=1-1 2,3=1-2 4,4=1-5 11,4=1-3"
                                          << "0 1 2 4";
    QTest::newRow("list to a filled key, which loses its button")
        << "button 4"
        << "key 2,2" << none << "2,2=1-5 2,3=1-2 11,4=1-3"
        << "1 2 4";
    QTest::newRow("list to a key of the right band")
        << "button 4"
        << "key 9,11" << none << "2,2=1-1 2,3=1-2 9,11=1-5 11,4=1-3"
        << "0 1 2 4";
    QTest::newRow("list to a key of the bottom band")
        << "button 4"
        << "key 11,9" << none << "2,2=1-1 2,3=1-2 11,4=1-3 11,9=1-5"
        << "0 1 2 4";
    QTest::newRow("list to the line between keys") << "button 4"
                                                   << "line key 4,4" << none << before << "0 1 2";
    QTest::newRow("list to the gap around the keys") << "button 4"
                                                     << "key 10,4" << none << before << "0 1 2";
    QTest::newRow("list to an unavailable key") << "button 4"
                                                << "key 0,4" << none << before << "0 1 2";
    QTest::newRow("list to a corner") << "button 4"
                                      << "key 11,11" << none << before << "0 1 2";
    QTest::newRow("list below the keys") << "button 4"
                                         << "below the keys" << none << before << "0 1 2";
    QTest::newRow("list to the list") << "button 4"
                                      << "button 1" << none << before << "0 1 2";
    QTest::newRow("list to the plain window") << "button 4"
                                              << "plain window" << none << before << "0 1 2";
    QTest::newRow("list out of the window") << "button 4"
                                            << "bare screen" << none << before << "0 1 2";
    QTest::newRow("list to a key, given up by Escape") << "button 4"
                                                       << "key 4,4"
                                                       << "Escape" << before << "0 1 2";

    QTest::newRow("key to an empty key") << "key 2,2"
                                         << "key 4,4" << none << "2,3=1-2 4,4=1-1 11,4=1-3"
                                         << "0 1 2";
    QTest::newRow("key to a filled key") << "key 2,2"
                                         << "key 2,3" << none << "2,2=1-2 2,3=1-1 11,4=1-3"
                                         << "0 1 2";
    QTest::newRow("key to a band") << "key 2,2"
                                   << "key 2,11" << none << "2,3=1-2 2,11=1-1 11,4=1-3"
                                   << "0 1 2";
    QTest::newRow("key of a band to a filled key") << "key 11,4"
                                                   << "key 2,2" << none << "2,2=1-3 2,3=1-2 11,4=1-1"
                                                   << "0 1 2";
    QTest::newRow("key to itself") << "key 2,2"
                                   << "key 2,2" << none << before << "0 1 2";
    QTest::newRow("key to the line between keys") << "key 2,2"
                                                  << "line key 4,4" << none << before << "0 1 2";
    QTest::newRow("key to the gap around the keys") << "key 2,2"
                                                    << "key 5,10" << none << before << "0 1 2";
    QTest::newRow("key to an unavailable key") << "key 2,2"
                                               << "key 5,0" << none << before << "0 1 2";
    QTest::newRow("key below the keys") << "key 2,2"
                                        << "below the keys" << none << before << "0 1 2";
    QTest::newRow("key to the list") << "key 2,2"
                                     << "button 5" << none << before << "0 1 2";
    QTest::newRow("key to the plain window") << "key 2,2"
                                             << "plain window" << none << before << "0 1 2";
    QTest::newRow("key out of the window") << "key 2,2"
                                           << "bare screen" << none << before << "0 1 2";
    QTest::newRow("key to an empty key, given up by Escape") << "key 2,2"
                                                             << "key 4,4"
                                                             << "Escape" << before << "0 1 2";
    QTest::newRow("key to a filled key, given up by Escape") << "key 2,2"
                                                             << "key 2,3"
                                                             << "Escape" << before << "0 1 2";

    for (const QString modifier : {"shift", "ctrl"}) {
        const auto row = [&modifier](const QString &name) -> QTestData & {
            return QTest::newRow(qPrintable(name + " with " + modifier + " held"));
        };
        row("list to an empty key") << "button 4"
                                    << "key 4,4" << modifier << "2,2=1-1 2,3=1-2 4,4=1-5 11,4=1-3"
                                    << "0 1 2 4";
        row("list to a filled key") << "button 4"
                                    << "key 2,2" << modifier << "2,2=1-5 2,3=1-2 11,4=1-3"
                                    << "1 2 4";
        row("key to an empty key") << "key 2,2"
                                   << "key 4,4" << modifier << "2,3=1-2 4,4=1-1 11,4=1-3"
                                   << "0 1 2";
        row("key to a filled key") << "key 2,2"
                                   << "key 2,3" << modifier << "2,2=1-2 2,3=1-1 11,4=1-3"
                                   << "0 1 2";
    }
}

void TestDrags::keys()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, how);
    QFETCH(QString, filled);
    QFETCH(QString, ticks);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,3=1 11,4=2 2,2=0"));
    Workspace::select(desk.grid(), "9,9");
    const QString filledBefore = Desk::filled(desk.grid());
    const QStringList before = desk.space.snapshot();

    drag(desk, from, to, how);
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.grid()), filled);
    QCOMPARE(desk.ticks(), ticks);
    QCOMPARE(desk.foreignCell(desk.grid()), QString());
    QCOMPARE(desk.space.leftOnPads(), QString()); // they lie beneath
    if (filled == filledBefore && ticks == "0 1 2")
        QCOMPARE(desk.space.snapshot(), before);
    else
        QCOMPARE(selectedKeys(desk), to); // that alone, whatever key was held
}

void TestDrags::whatCannotBeDragged_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("held");

    const QString none;
    QTest::newRow("empty pad") << "pad 3,0" << 1 << none;
    QTest::newRow("empty pad with Ctrl") << "pad 3,0" << 1 << "ctrl";
    QTest::newRow("empty key") << "key 3,3" << 1 << none;
    QTest::newRow("empty key with Ctrl") << "key 3,3" << 1 << "ctrl";
    QTest::newRow("empty key with Shift") << "key 3,3" << 1 << "shift";
    QTest::newRow("selected key that Ctrl lets go of") << "key 2,3" << 1 << "ctrl";
    QTest::newRow("unavailable key") << "key 0,3" << 1 << none;
    QTest::newRow("unavailable key with Shift") << "key 0,3" << 1 << "shift";
    QTest::newRow("unavailable key, middle button") << "key 0,3" << 2 << none;
    QTest::newRow("gap, middle button") << "key 1,4" << 2 << none;
}

void TestDrags::whatCannotBeDragged()
{
    QFETCH(QString, from);
    QFETCH(int, button);
    QFETCH(QString, held);
    Desk &desk = *m_desk;
    const bool areKeys = from.startsWith("key");
    const QString to = areKeys ? "key 5,5" : "pad 5,0";
    QVERIFY(areKeys ? desk.clearKeys() : desk.clearPads());
    QTableView *view = viewOf(desk, from);
    QVERIFY(desk.lay(view, areKeys ? "2,2=0 2,3=1" : "0,0=0"));
    const QStringList before = desk.space.snapshot();
    Workspace::select(view, areKeys ? "2,2 2,3" : "0,0");

    desk.hands.moveTo(placeOf(desk, from));
    if (!held.isEmpty())
        desk.hands.hold(held);
    desk.hands.press(button);
    desk.hands.moveTo(placeOf(desk, to));
    desk.hands.moveTo(placeOf(desk, from));
    desk.hands.moveTo(placeOf(desk, to)); // which a drag would keep from the window
    desk.hands.release(button);
    if (!held.isEmpty())
        desk.hands.letGo(held);
    QVERIFY(desk.hands.play());

    QCOMPARE(desk.space.snapshot(), before);
}

void TestDrags::emptiedPadHasTheLabelOfItsRow()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads(16));
    QVERIFY(desk.lay(desk.pads(), "4,0=0 2,1=1"));
    drag(desk, "pad 4,0", "pad 6,0");
    drag(desk, "pad 2,1", "pad 6,1");
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.pads()), QString("6,0=1-1 6,1=1-2"));
    QCOMPARE(desk.space.pads()->index(4, 0).data().toString(), QString("PAD 5"));
    QCOMPARE(desk.space.pads()->index(2, 1).data().toString(), QString("PAD 3")); // it was PAD 11
}

void TestDrags::emptiedKeyHasItsLabelBack()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0 11,4=1"));
    drag(desk, "key 2,2", "key 4,4");
    drag(desk, "key 11,4", "key 2,2");
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.grid()), QString("2,2=1-2 4,4=1-1"));
    const QModelIndex emptied = desk.space.grid()->index(11, 4);
    QCOMPARE(emptied.data().toString(), QString("BOTTOM 3"));
    QCOMPARE(emptied.data(DisplayNameRole).toString(), QString("BOTTOM 3"));
    QCOMPARE(emptied.data(AvailableRole).toString(), QString("1"));
}

void TestDrags::padOnTheLineBetweenPadsIsNeitherFilledNorEmpty()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "0,0=0 1,0=1"));
    drag(desk, "pad 0,0", "line pad 4,0");
    QVERIFY(desk.hands.play());

    const QModelIndex pad = desk.space.pads()->index(0, 0);
    QCOMPARE(pad.data().toString(), QString("PAD 1"));
    for (const int role : {int(DisplayNameRole), int(PageRole), int(ButtonRole)})
        QCOMPARE(pad.data(role).toString(), QString());
    QVERIFY(!pad.data(Qt::DecorationRole).value<QColor>().isValid());
    QCOMPARE(desk.space.pads()->index(1, 0).data().toString(), QString("1-2"));
    QCOMPARE(desk.ticks(), QString("0 1"));
}

void TestDrags::padInAnotherBank()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.hands.pick(desk.space.find<QComboBox>("bankcombo"), 2);
    drag(desk, "button 3", "pad 17,0");
    drag(desk, "button 5", "pad 18,0");
    drag(desk, "pad 17,0", "pad 18,0");
    drag(desk, "pad 17,0", "pad 20,0");
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.pads()), QString("18,0=1-4 20,0=1-6"));
    QCOMPARE(desk.space.pads()->index(17, 0).data().toString(), QString("PAD 2"));
    QCOMPARE(desk.ticks(), QString("3 5"));
}

void TestDrags::keyTakesItsColoursAlong()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0"));
    const QList<QPair<int, QString>> leds = {
        {OffColorRole, "red"}, {OnColorRole, "yellow"}, {BlinkRole, "1"}};
    for (const auto &[role, value] : leds)
        QVERIFY(desk.space.grid()->setData(desk.space.grid()->index(2, 2), value, role));
    drag(desk, "key 2,2", "key 5,5");
    QVERIFY(desk.hands.play());

    for (const auto &[role, value] : leds) {
        QCOMPARE(desk.space.grid()->index(5, 5).data(role).toString(), value);
        QCOMPARE(desk.space.grid()->index(2, 2).data(role).toString(), QString());
    }
}

void TestDrags::newButtonOnAKeyHasNoColours()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0"));
    for (const int role : {int(OffColorRole), int(OnColorRole), int(BlinkRole)})
        QVERIFY(desk.space.grid()->setData(desk.space.grid()->index(2, 2), "1", role));
    drag(desk, "button 3", "key 2,2");
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(desk.grid()), QString("2,2=1-4"));
    for (const int role : {int(OffColorRole), int(OnColorRole), int(BlinkRole)})
        QCOMPARE(desk.space.grid()->index(2, 2).data(role).toString(), QString());
}

void TestDrags::switchTakesNoDrop()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0"));
    desk.hands.click(placeOf(desk, "key 5,5"), 3);
    desk.hands.pickEntry("Set as Switch");
    desk.hands.awaitNoPopup();
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.grid()->index(5, 5).data().toString(), QString("SWITCH"));

    drag(desk, "button 3", "key 5,5");
    drag(desk, "key 2,2", "key 5,5");
    QVERIFY(desk.hands.play());
    QCOMPARE(Desk::filled(desk.grid()), QString("2,2=1-1"));
    QCOMPARE(desk.space.grid()->index(5, 5).data().toString(), QString("SWITCH"));
    QCOMPARE(desk.ticks(), QString("0"));
}

void TestDrags::ofSeveralKeysTheFirstMoves()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0 2,3=1 2,4=2"));
    desk.hands.click(placeOf(desk, "key 2,2"));
    desk.hands.hold("shift");
    desk.hands.click(placeOf(desk, "key 2,4"));
    desk.hands.letGo("shift");
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.grid()->selectionModel()->selectedIndexes().size(), 3);

    drag(desk, "key 2,4", "key 6,6");
    QVERIFY(desk.hands.play());
    QCOMPARE(Desk::filled(desk.grid()), QString("2,3=1-2 2,4=1-3 6,6=1-1"));
    QCOMPARE(desk.ticks(), QString("0 1 2"));
}

void TestDrags::focusAfterADrop()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "0,0=0"));
    drag(desk, "button 3", "pad 0,0");
    QVERIFY(desk.hands.play());
    QCOMPARE(Workspace::focused(), QString("vdjlistview")); // a button was replaced

    QVERIFY(desk.clearKeys());
    drag(desk, "button 3", "key 4,4");
    QVERIFY(desk.hands.play());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
    QCOMPARE(desk.grid()->currentIndex(), desk.space.grid()->index(4, 4));
}

void TestDrags::dragFromAnotherProgramIsRefused_data()
{
    QTest::addColumn<QString>("to");
    QTest::newRow("on an empty pad") << "pad 3,0";
    QTest::newRow("on a filled pad") << "pad 0,0";
    QTest::newRow("on an empty key") << "key 4,4";
    QTest::newRow("on a filled key") << "key 2,2";
}

void TestDrags::dragFromAnotherProgramIsRefused()
{
    QFETCH(const QString, to);
    Desk &desk = *m_desk;
    const bool areKeys = to.startsWith("key");
    QVERIFY(areKeys ? desk.clearKeys() : desk.clearPads());
    QVERIFY(desk.lay(viewOf(desk, to), areKeys ? "2,2=0 2,3=1" : "0,0=0 1,0=1"));
    const QStringList before = desk.space.snapshot();

    SecondZarvex other(true);
    desk.hands.beginDragElsewhere(other.firstPad(), [&other] { return other.isDragging(); });
    desk.hands.dragOver(placeOf(desk, to));
    desk.hands.release();
    desk.hands.await("the drag is over", [&other] { return !other.isDragging(); });
    desk.hands.click(desk.on("label_4"));
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestDrags::closingAmidADrag_data()
{
    QTest::addColumn<bool>("hasWork");
    QTest::newRow("without work") << false;
    QTest::newRow("with work") << true;
}

void TestDrags::closingAmidADrag()
{
    QFETCH(const bool, hasWork);
    SecondZarvex program(hasWork);
    const auto closeIt = [&] {
        m_desk->hands.beginDragElsewhere(program.firstLiveButton(),
                                         [&program] { return program.isDragging(); });
        m_desk->hands.keyInDrag("alt+F4");
    };
    closeIt();
    if (hasWork) {
        const auto asks = [&program] { return program.box() == "Project is not empty."; };
        m_desk->hands.await("the question", asks);
        m_desk->hands.release();
        m_desk->hands.keyInDrag("Escape"); // Cancel: all goes on
        m_desk->hands.await("the answer", [&program] { return program.box().isEmpty(); });
        closeIt();
        m_desk->hands.await("the question", asks);
        m_desk->hands.release();
        m_desk->hands.keyInDrag("alt+y");
    }
    m_desk->hands.await("the program has ended", [&program] { return program.hasEnded(); });
    m_desk->hands.release();
    m_desk->hands.click(m_desk->on("label_4"));
    QVERIFY(m_desk->hands.play());
}

void TestDrags::init()
{
    if (m_desk)
        return;
    auto desk = std::make_unique<Desk>();
    QVERIFY(desk->start());
    m_desk = std::move(desk);
}

void TestDrags::cleanup()
{
    if (QTest::currentTestFailed()) // the next one shall have a desk that is in order
        m_desk.reset();
}

QTEST_MAIN(TestDrags)
#include "test_drags.moc"
