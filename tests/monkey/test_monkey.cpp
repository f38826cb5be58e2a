#include "compare.h"
#include "gesture.h"
#include "picker.h"
#include "player.h"
#include "rules.h"
#include "stock.h"
#include "support/files.h"
#include "support/workspace.h"

#include <QApplication>
#include <QDate>
#include <QSet>

namespace {

constexpr int Seeds = 6;
constexpr int Steps = 500; ///< for each of them

QStringList gesturesIn(const QString &path)
{
    return QString::fromUtf8(bytesOf(path)).split('\n', Qt::SkipEmptyParts);
}

int stepsToPlay()
{
    const int steps = qEnvironmentVariableIntValue("ZARVEX_MONKEY_STEPS");
    return steps > 0 ? steps : Steps;
}

bool isToldWhatToPlay()
{
    return qEnvironmentVariableIsSet("ZARVEX_MONKEY_PLAY") || qEnvironmentVariableIsSet("ZARVEX_MONKEY_SEED")
           || qEnvironmentVariableIsSet("ZARVEX_MONKEY_STEPS");
}

QtMessageHandler messagesBefore = nullptr;

/** The offscreen platform complains of every window; a thousand such lines would hide what matters. */
void hearMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith("This plugin does not support"))
        messagesBefore(type, context, text);
}

/** Mappings tell the day; none is made around midnight. */
QString today()
{
    while (QTime::currentTime() > QTime(23, 59, 50))
        QTest::qWait(1000);
    return QDate::currentDate().toString("d-M-yyyy");
}

} // namespace

/**
 * Random gestures on the window, compared after each with rules of the test's own.
 *
 * ZARVEX_MONKEY_SEED plays another seed, ZARVEX_MONKEY_STEPS that many gestures, and ZARVEX_MONKEY_PLAY the
 * gestures in a file, one a line; what is impossible there is passed over.
 */
class TestMonkey final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void plays_data();
    void plays();
    void playedEverything();

private:
    const DefaultCodec m_codec{"UTF-8"}; ///< the locale of the machine is no part of what is tested
    QSet<QString> m_played;              ///< kinds of gestures
};

/** Plays gestures one after the other and keeps a log of them, where it has a name. */
class Session final
{
public:
    explicit Session(const QString &log) : m_log(log), m_player(m_space)
    {
        Stock::lay(m_space, m_world);
        if (!log.isEmpty() && !m_log.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(log));
    }

    const Rules::World &world() const { return m_world; }

    QString lookAround() { return Compare::window(m_space, m_world); }

    /** @return what came otherwise than told; empty if nothing */
    QString play(const Gesture &gesture)
    {
        m_world.today = today();
        const Rules::Outcome told = Rules::play(m_world, gesture);
        if (!told.isPossible)
            return {};
        if (m_log.isOpen()) {
            m_log.write(gesture.line().toUtf8() + "\n");
            m_log.flush(); // a crash leaves it behind
        }
        QString fault = m_player.play(gesture, told);
        if (told.hasLeft)
            Rules::start(m_world);
        if (fault.isEmpty())
            fault = Compare::window(m_space, m_world);
        if (fault.isEmpty() && !told.questions.isEmpty()) // without one, nothing is written
            fault = Compare::files(m_world);
        return fault;
    }

    /** All went well. */
    void forgetLog()
    {
        if (m_log.isOpen())
            m_log.remove();
    }

private:
    QFile m_log;
    Workspace m_space;
    Rules::World m_world;
    Player m_player;
};

void TestMonkey::initTestCase()
{
    QApplication::setQuitOnLastWindowClosed(false); // the monkey leaves and comes back
}

void TestMonkey::init()
{
    messagesBefore = qInstallMessageHandler(hearMessage);
}

void TestMonkey::cleanup()
{
    qInstallMessageHandler(messagesBefore);
}

void TestMonkey::plays_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<QStringList>("script");
    const QString file = qEnvironmentVariable("ZARVEX_MONKEY_PLAY");
    const QString seed = qEnvironmentVariable("ZARVEX_MONKEY_SEED");
    if (!file.isEmpty())
        QTest::newRow("gestures of a file") << 0 << gesturesIn(file);
    else if (!seed.isEmpty())
        QTest::addRow("seed %d", seed.toInt()) << seed.toInt() << QStringList();
    else
        for (int each = 1; each <= Seeds; ++each)
            QTest::addRow("seed %d", each) << each << QStringList();
}

void TestMonkey::plays()
{
    QFETCH(int, seed);
    QFETCH(QStringList, script);
    const bool isRandom = script.isEmpty();
    const QString log =
        isRandom ? QString("%1/gestures-%2.txt").arg(QCoreApplication::applicationDirPath()).arg(seed) : "";
    Session session(log);
    QCOMPARE(session.lookAround(), QString());
    Picker picker(static_cast<quint32>(seed));
    const int steps = isRandom ? stepsToPlay() : script.size();
    for (int step = 1; step <= steps; ++step) {
        const Gesture gesture =
            isRandom ? picker.next(session.world()) : Gesture::fromLine(script.at(step - 1));
        QVERIFY2(Rules::verbs().contains(gesture.verb), qPrintable("no gesture: " + gesture.line()));
        m_played.insert(gesture.verb);
        const QString fault = session.play(gesture);
        QVERIFY2(fault.isEmpty(),
                 qPrintable(QString("seed %1, step %2: %3\n  %4\n  %5")
                                .arg(seed)
                                .arg(step)
                                .arg(gesture.line(), fault,
                                     isRandom ? "To play it again: ZARVEX_MONKEY_PLAY=" + log : QString())));
    }
    session.forgetLog();
}

/** A monkey that leaves out a kind of gesture would find nothing there. */
void TestMonkey::playedEverything()
{
    if (isToldWhatToPlay())
        return;
    QStringList missing;
    for (const QString &verb : Rules::verbs()) {
        if (!m_played.contains(verb))
            missing.append(verb);
    }
    QCOMPARE(missing, QStringList());
}

QTEST_MAIN(TestMonkey)
#include "test_monkey.moc"
