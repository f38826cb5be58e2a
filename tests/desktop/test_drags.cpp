#include "desktop/desk.h"
#include "support/boxes.h"

#include <QProcess>
#include <QRegularExpression>

/**
 * Drags with a real mouse.
 *
 * Pads and keys are never on show together: what lies on one of them cannot be dragged to the other. No bank leaves
 * room below its eight pads, and the list of Live Buttons takes no drop anywhere.
 */
class TestDrags final : public DeskTest
{
    Q_OBJECT

private slots:
    void dragsOntoPads_data();
    void dragsOntoPads();
    void dragsOntoKeys_data();
    void dragsOntoKeys();
    void whatCannotBeDragged_data();
    void whatCannotBeDragged();
    void padOnTheLineBetweenPadsIsNeitherFilledNorEmpty();
    void switchTakesNoDrop();
    void ofSeveralKeysTheFirstMoves();
    void focusAfterADrop();
    void dragFromAnotherProgramIsRefused_data();
    void dragFromAnotherProgramIsRefused();
    void closingAmidADrag_data();
    void closingAmidADrag();
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
    desk.input.beginDrag(viewOf(desk, from), placeOf(desk, from));
    if (isHeld)
        desk.input.hold(how);
    if (to == "bare screen")
        desk.input.dragOut(placeOf(desk, to));
    else
        desk.input.dragOver(placeOf(desk, to));
    if (how == "Escape")
        desk.input.keyInDrag(how);
    desk.input.release();
    if (isHeld)
        desk.input.letGo(how);
    desk.input.moveTo(desk.on("label_4"));
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
    bool isAtRest() { return box().isEmpty() && seen().value(4) == "active"; }
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

void TestDrags::dragsOntoPads_data()
{
    addColumns<QString>({"from", "to", "how", "filled", "ticks"});
    const QString all = "0,0=1-1 1,0=1-2 2,1=1-3";

    addRow("list to an empty pad", "button 4", "pad 3,0", "", all + " 3,0=1-5", "0 1 2 4");
    addRow("list to a filled pad", "button 4", "pad 0,0", "", "0,0=1-5 1,0=1-2 2,1=1-3", "1 2 4");
    addRow("list to a filled pad of column 2", "button 4", "pad 2,1", "", "0,0=1-1 1,0=1-2 2,1=1-5", "0 1 4");
    addRow("list to the line between pads ticks and lies nowhere", "button 4", "line pad 3,0", "", all,
           "0 1 2 4");
    addRow("list to the list", "button 4", "button 1", "", all, "0 1 2");
    addRow("list to the plain window", "button 4", "plain window", "", all, "0 1 2");
    addRow("list out of the window", "button 4", "bare screen", "", all, "0 1 2");
    addRow("list to a pad, given up by Escape", "button 4", "pad 3,0", "Escape", all, "0 1 2");
    addRow("pad to an empty pad", "pad 0,0", "pad 4,1", "", "1,0=1-2 2,1=1-3 4,1=1-1", "0 1 2");
    addRow("pad to a filled pad", "pad 0,0", "pad 2,1", "", "0,0=1-3 1,0=1-2 2,1=1-1", "0 1 2");
    addRow("pad to itself", "pad 0,0", "pad 0,0", "", all, "0 1 2");
    addRow("pad to the list", "pad 0,0", "button 5", "", all, "0 1 2");
    addRow("pad out of the window", "pad 0,0", "bare screen", "", all, "0 1 2");
    addRow("pad to a filled pad, given up by Escape", "pad 0,0", "pad 1,0", "Escape", all, "0 1 2");
    for (const QString key : {"shift", "ctrl"}) {
        addRow("list to a filled pad with " + key, "button 4", "pad 0,0", key, "0,0=1-5 1,0=1-2 2,1=1-3",
               "1 2 4");
        addRow("pad to a filled pad with " + key, "pad 0,0", "pad 1,0", key, "0,0=1-2 1,0=1-1 2,1=1-3",
               "0 1 2");
    }
}

void TestDrags::dragsOntoPads()
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
    QVERIFY(desk.input.play());

    QCOMPARE(Desk::filled(desk.pads()), filled);
    QCOMPARE(desk.ticks(), ticks);
    QCOMPARE(desk.foreignCell(desk.pads()), QString());
    if (filled == filledBefore && ticks == "0 1 2")
        QCOMPARE(desk.space.snapshot(), before);
}

void TestDrags::dragsOntoKeys_data()
{
    addColumns<QString>({"from", "to", "how", "filled", "ticks"});
    const QString all = "2,2=1-1 2,3=1-2 11,4=1-3";

    addRow("list to an empty key", "button 4", "key 9,11", "", "2,2=1-1 2,3=1-2 9,11=1-5 11,4=1-3",
           "0 1 2 4");
    addRow("list to a filled key", "button 4", "key 2,2", "", "2,2=1-5 2,3=1-2 11,4=1-3", "1 2 4");
    addRow("list to the line between keys", "button 4", "line key 4,4", "", all, "0 1 2");
    addRow("list to the gap around the keys", "button 4", "key 10,4", "", all, "0 1 2");
    addRow("list to an unavailable key", "button 4", "key 0,4", "", all, "0 1 2");
    addRow("list to a corner", "button 4", "key 11,11", "", all, "0 1 2");
    addRow("list below the keys", "button 4", "below the keys", "", all, "0 1 2");
    addRow("list to a key, given up by Escape", "button 4", "key 4,4", "Escape", all, "0 1 2");
    addRow("key to an empty key", "key 2,2", "key 4,4", "", "2,3=1-2 4,4=1-1 11,4=1-3", "0 1 2");
    addRow("key to a filled key", "key 11,4", "key 2,2", "", "2,2=1-3 2,3=1-2 11,4=1-1", "0 1 2");
    addRow("key to itself", "key 2,2", "key 2,2", "", all, "0 1 2");
    addRow("key to an unavailable key", "key 2,2", "key 5,0", "", all, "0 1 2");
    addRow("key below the keys", "key 2,2", "below the keys", "", all, "0 1 2");
    addRow("key to the list", "key 2,2", "button 5", "", all, "0 1 2");
    addRow("key out of the window", "key 2,2", "bare screen", "", all, "0 1 2");
    addRow("key to a filled key, given up by Escape", "key 2,2", "key 2,3", "Escape", all, "0 1 2");
    for (const QString key : {"shift", "ctrl"}) {
        addRow("list to a filled key with " + key, "button 4", "key 2,2", key, "2,2=1-5 2,3=1-2 11,4=1-3",
               "1 2 4");
        addRow("key to a filled key with " + key, "key 2,2", "key 2,3", key, "2,2=1-2 2,3=1-1 11,4=1-3",
               "0 1 2");
    }
}

void TestDrags::dragsOntoKeys()
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
    QVERIFY(desk.input.play());

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
    addColumns<QString>({"from", "held"});
    addColumns<int>({"button"});

    addRow("empty pad", "pad 3,0", "", 1);
    addRow("empty pad with Ctrl", "pad 3,0", "ctrl", 1);
    addRow("empty key", "key 3,3", "", 1);
    addRow("empty key with Ctrl", "key 3,3", "ctrl", 1);
    addRow("empty key with Shift", "key 3,3", "shift", 1);
    addRow("selected key that Ctrl lets go of", "key 2,3", "ctrl", 1);
    addRow("unavailable key with Shift", "key 0,3", "shift", 1);
    addRow("unavailable key, middle button", "key 0,3", "", 2);
    addRow("gap, middle button", "key 1,4", "", 2);
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

    desk.input.moveTo(placeOf(desk, from));
    if (!held.isEmpty())
        desk.input.hold(held);
    desk.input.press(button);
    desk.input.moveTo(placeOf(desk, to));
    desk.input.moveTo(placeOf(desk, from));
    desk.input.moveTo(placeOf(desk, to)); // which a drag would keep from the window
    desk.input.release(button);
    if (!held.isEmpty())
        desk.input.letGo(held);
    QVERIFY(desk.input.play());

    QCOMPARE(desk.space.snapshot(), before);
}

void TestDrags::padOnTheLineBetweenPadsIsNeitherFilledNorEmpty()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "0,0=0 1,0=1"));
    drag(desk, "pad 0,0", "line pad 4,0");
    QVERIFY(desk.input.play());

    const QModelIndex pad = desk.space.pads()->index(0, 0);
    QCOMPARE(pad.data().toString(), QString("PAD 1"));
    for (const int role : {int(DisplayNameRole), int(PageRole), int(ButtonRole)})
        QCOMPARE(pad.data(role).toString(), QString());
    QVERIFY(!pad.data(Qt::DecorationRole).value<QColor>().isValid());
    QCOMPARE(desk.space.pads()->index(1, 0).data().toString(), QString("1-2"));
    QCOMPARE(desk.ticks(), QString("0 1"));
}

void TestDrags::switchTakesNoDrop()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0"));
    desk.input.click(placeOf(desk, "key 5,5"), 3);
    desk.input.pickEntry("Set as Switch");
    desk.input.awaitNoPopup();
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.grid()->index(5, 5).data().toString(), QString("SWITCH"));

    drag(desk, "button 3", "key 5,5");
    drag(desk, "key 2,2", "key 5,5");
    QVERIFY(desk.input.play());
    QCOMPARE(Desk::filled(desk.grid()), QString("2,2=1-1"));
    QCOMPARE(desk.space.grid()->index(5, 5).data().toString(), QString("SWITCH"));
    QCOMPARE(desk.ticks(), QString("0"));
}

void TestDrags::ofSeveralKeysTheFirstMoves()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "2,2=0 2,3=1 2,4=2"));
    desk.input.click(placeOf(desk, "key 2,2"));
    desk.input.hold("shift");
    desk.input.click(placeOf(desk, "key 2,4"));
    desk.input.letGo("shift");
    QVERIFY(desk.input.play());
    QCOMPARE(desk.grid()->selectionModel()->selectedIndexes().size(), 3);

    drag(desk, "key 2,4", "key 6,6");
    QVERIFY(desk.input.play());
    QCOMPARE(Desk::filled(desk.grid()), QString("2,3=1-2 2,4=1-3 6,6=1-1"));
    QCOMPARE(desk.ticks(), QString("0 1 2"));
}

void TestDrags::focusAfterADrop()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "0,0=0"));
    drag(desk, "button 3", "pad 0,0");
    QVERIFY(desk.input.play());
    QCOMPARE(Workspace::focused(), QString("vdjlistview")); // a button was replaced

    QVERIFY(desk.clearKeys());
    drag(desk, "button 3", "key 4,4");
    QVERIFY(desk.input.play());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
    QCOMPARE(desk.grid()->currentIndex(), desk.space.grid()->index(4, 4));
}

void TestDrags::dragFromAnotherProgramIsRefused_data()
{
    addColumns<QString>({"to"});
    addRow("on an empty pad", "pad 3,0");
    addRow("on a filled pad", "pad 0,0");
    addRow("on an empty key", "key 4,4");
    addRow("on a filled key", "key 2,2");
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
    desk.input.beginDragElsewhere(other.firstPad(), [&other] { return other.isDragging(); });
    desk.input.dragOver(placeOf(desk, to));
    desk.input.release();
    desk.input.await("the drag is over", [&other] { return !other.isDragging(); });
    desk.input.click(desk.on("label_4"));
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestDrags::closingAmidADrag_data()
{
    addColumns<bool>({"hasWork"});
    addRow("without work", false);
    addRow("with work", true);
}

void TestDrags::closingAmidADrag()
{
    QFETCH(const bool, hasWork);
    SecondZarvex program(hasWork);
    const auto closeIt = [&] {
        m_desk->input.beginDragElsewhere(program.firstLiveButton(),
                                         [&program] { return program.isDragging(); });
        m_desk->input.keyInDrag("alt+F4");
    };
    closeIt();
    if (hasWork) {
        const auto asks = [&program] { return program.box() == Boxes::leaving({}).text; };
        m_desk->input.await("the question", asks);
        m_desk->input.release();
        m_desk->input.keyInDrag("Escape"); // Cancel: all goes on
        m_desk->input.await("the answer", [&program] { return program.isAtRest(); });
        closeIt();
        m_desk->input.await("the question", asks);
        m_desk->input.release();
        m_desk->input.keyInDrag("alt+y");
    }
    m_desk->input.await("the program has ended", [&program] { return program.hasEnded(); });
    m_desk->input.release();
    m_desk->input.click(m_desk->on("label_4"));
    QVERIFY(m_desk->input.play());
}

QTEST_MAIN(TestDrags)
#include "test_drags.moc"
