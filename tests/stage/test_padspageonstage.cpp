#include "export/padspage.h"
#include "stage/virtualdj.h"
#include "support/files.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QTextStream>
#include <QtTest>

using namespace Stage;

namespace {

int checks = 0;

/** A Live Button on a pad. */
struct Pad
{
    QString button;
    QString text; ///< that the DJ typed for it
    QString color;
};

/** What a DJ has laid out for a page: bank from 0 and pad from 1. */
struct LaidOut
{
    QMap<QPair<int, int>, Pad> pads;
    int padsPerBank = 8;

    QList<int> banks() const
    {
        QList<int> used;
        for (const QPair<int, int> &place : pads.keys()) {
            if (!used.contains(place.first))
                used += place.first;
        }
        return used;
    }
};

QStringList bankNames()
{
    return {"Slow", "Fast", "Fog", "Heads", "Lasers", "BANK 6", "Finale", "House lights"};
}

/** @param which  "all" or "third", which leaves two pads of three empty */
LaidOut laidOut(const QList<int> &banks, int padsPerBank, const QString &which)
{
    LaidOut laid;
    laid.padsPerBank = padsPerBank;
    for (const int bank : banks) {
        for (int pad = 1; pad <= padsPerBank; ++pad) {
            if (which == "third" && (bank + pad) % 3)
                continue;
            const QString name = QString("%1.%2").arg(bank + 1).arg(pad);
            laid.pads[{bank, pad}] = {"Light " + name, pad % 2 ? "Light " + name : "My " + name,
                                      QString("#%1%2cc").arg(16 + bank, 2, 16).arg(32 + pad, 2, 16)};
        }
    }
    return laid;
}

QByteArray exported(const LaidOut &laid)
{
    VDJModel pads;
    bool isFilled = pads.insertRows(0, 64);
    for (auto each = laid.pads.cbegin(); each != laid.pads.cend(); ++each) {
        const int pad = each.key().second - 1;
        const QModelIndex cell = pads.index(each.key().first * 8 + pad % 8, pad / 8);
        isFilled = isFilled && pads.setData(cell, "1", PageRole) && pads.setData(cell, each->text)
                   && pads.setData(cell, each->button, DisplayNameRole)
                   && pads.setData(cell, each->color, Qt::DecorationRole);
    }
    if (!isFilled)
        return "the pads cannot be filled";
    const PadsPage page = {"Lights", bankNames(), laid.padsPerBank, pads};
    return streamed([&page](QTextStream &out) { writePadsPage(out, page); });
}

/** VirtualDJ with a page on show. */
struct Performance
{
    explicit Performance(const LaidOut &laid, bool feedback = true)
        : lights(feedback), dj(lights), page(PadsPageFile::fromXml(exported(laid)))
    {
    }

    void turn(int steps, const QString &deck)
    {
        for (int step = 0; step < qAbs(steps); ++step)
            dj.perform(page.parameter.action, {Gesture::Turn, steps < 0 ? -1.0 : 1.0}, deck);
    }
    void press(int pad, const QString &deck)
    {
        dj.perform(page.pads.value(pad).action, {Gesture::Press}, deck);
    }
    void release(int pad, const QString &deck)
    {
        dj.perform(page.pads.value(pad).action, {Gesture::Release}, deck);
    }

    DmxProgram lights;
    VirtualDj dj;
    PadsPageFile page;
};

/** What is not as laid out in a bank on a deck; empty where all is. */
QString faultOf(Performance &stage, const LaidOut &laid, int bank, const QString &deck)
{
    QStringList found = {stage.dj.attribute(stage.page.parameter.name, deck)};
    QStringList expected = {bankNames().at(bank)};
    for (int pad = 1; pad <= laid.padsPerBank; ++pad) {
        const Pad meant = laid.pads.value({bank, pad}, {"", "", "transparent"});
        const PadsPageFile::Pad is = stage.page.pads.value(pad);
        found += {stage.dj.attribute(is.name, deck), stage.dj.ask(is.color, deck).inWords()};
        expected += {meant.text, meant.color};
        const bool isTold = stage.lights.givesFeedback();
        for (int times = 0; times < 2; ++times) {
            stage.press(pad, deck);
            found += stage.lights.takeReceived().join(",");
            stage.release(pad, deck);
            found += stage.lights.takeReceived().join(",");
            const bool turnsOff = isTold && times == 1;
            expected += {meant.button.isEmpty() ? "" : meant.button + (turnsOff ? " off" : " on"),
                         meant.button.isEmpty() || isTold ? "" : meant.button + " off"};
        }
    }
    found += stage.dj.takeFaults() + stage.dj.takeHappened();
    checks += expected.size();
    return found == expected ? QString() : found.join(" | ") + " instead of " + expected.join(" | ");
}

} // namespace

Q_DECLARE_METATYPE(Pad)

/** Exported Pads Pages on stage. */
class TestPadsPageOnStage final : public QObject
{
    Q_OBJECT

private slots:
    void cleanupTestCase() { qInfo("%d checks", checks); }
    void banksAndPads_data();
    void banksAndPads();
    void eachDeckHasItsOwnBank();
    void bankTurnedWhileAPadIsHeld();
    void names_data();
    void names();
};

void TestPadsPageOnStage::banksAndPads_data()
{
    QTest::addColumn<QList<int>>("banks");
    QTest::addColumn<int>("pads");

    for (const int pads : {8, 16}) {
        const auto row = [pads](const char *name, const QList<int> &banks) {
            QTest::addRow("%s of %d pads", name, pads) << banks << pads;
        };
        row("first bank", {0});
        row("last bank", {7});
        row("three banks with gaps", {1, 4, 7});
        row("all banks", {0, 1, 2, 3, 4, 5, 6, 7});
    }
}

/** The parameter leads through the banks, forward and back; what a pad shows and fires is the bank's. */
void TestPadsPageOnStage::banksAndPads()
{
    QFETCH(const QList<int>, banks);
    QFETCH(const int, pads);
    for (const QString which : {"all", "third"}) {
        for (const bool feedback : {true, false}) {
            const LaidOut laid = laidOut(banks, pads, which);
            Performance stage(laid, feedback);
            QVERIFY(stage.page.isReadable);
            QCOMPARE(stage.page.pads.size(), pads);
            QCOMPARE(laid.banks(), banks);
            for (const int step : {1, -1}) {
                for (int i = 0; i <= banks.size(); ++i) {
                    const int place = step > 0 ? i : int(banks.size()) - i;
                    const QString fault = faultOf(stage, laid, banks.at(place % banks.size()), "left");
                    QVERIFY2(fault.isEmpty(), qPrintable(fault));
                    if (i < banks.size())
                        stage.turn(step, "left");
                }
            }
        }
    }
}

void TestPadsPageOnStage::eachDeckHasItsOwnBank()
{
    const LaidOut laid = laidOut({0, 2, 3}, 8, "all");
    Performance stage(laid);
    stage.turn(2, "right");
    QCOMPARE(faultOf(stage, laid, 0, "left"), QString());
    QCOMPARE(faultOf(stage, laid, 3, "right"), QString());
}

/** Without feedback the light then stays on: another one gets the "off". */
void TestPadsPageOnStage::bankTurnedWhileAPadIsHeld()
{
    Performance stage(laidOut({0, 1}, 8, "all"), false);
    stage.press(1, "left");
    stage.turn(1, "left");
    stage.release(1, "left");
    QCOMPARE(stage.lights.takeReceived(), QStringList({"Light 1.1 on", "Light 2.1 off"}));
    QVERIFY(stage.lights.isOn("Light 1.1"));
}

void TestPadsPageOnStage::names_data()
{
    QTest::addColumn<Pad>("pad");
    QTest::addColumn<QString>("shown"); ///< "no file" where VirtualDJ cannot read it
    QTest::addColumn<bool>("fires");
    QTest::addColumn<bool>("nextBankFires");

    const auto row = [](const char *name, const Pad &pad, const char *shown, bool fires, bool nextBankFires) {
        QTest::newRow(name) << pad << QString::fromUtf8(shown) << fires << nextBankFires;
    };
    row("plain", {"Fog", "Fog", "#ff0000"}, "Fog", true, true);
    row("colon and question mark", {"Fast : Red ? yes", "Fast : Red ?", "#ff0000"}, "Fast : Red ?", true,
        true);
    row("apostrophe in the light", {"It's hot", "Hot", "#ff0000"}, "Hot", false, false);
    row("apostrophe in the text", {"Hot", "It's hot", "#ff0000"}, "It", true, true);
    row("backtick in the text", {"Hot", "H`t", "#ff0000"}, "Ht' : var 'dmxbank' 1 ? get_text 'Fog'", true,
        true);
    row("double quote in the light", {"\"Hot\"", "Hot", "#ff0000"}, "Hot", true, true);
    row("double quote in the text", {"Hot", "\"Hot\"", "#ff0000"}, "no file", false, false);
    row("ampersand", {"Drum & Bass", "Drum", "#ff0000"}, "no file", false, false);
    row("bracket", {"<3", "Heart", "#ff0000"}, "no file", false, false);
}

/** Names that a page spoils. */
void TestPadsPageOnStage::names()
{
    QFETCH(const Pad, pad);

    LaidOut laid;
    laid.pads = {{{0, 1}, pad}, {{1, 1}, {"Fog", "Fog", "#ffffff"}}};
    Performance stage(laid, false);
    const QString shown = stage.dj.attribute(stage.page.pads.value(1).name);
    QTEST(stage.page.isReadable ? shown : QString("no file"), "shown");
    stage.press(1, "left");
    QTEST(stage.lights.takeReceived() == QStringList{pad.button + " on"}, "fires");
    stage.turn(1, "left");
    stage.press(1, "left");
    QTEST(stage.lights.takeReceived() == QStringList{"Fog on"}, "nextBankFires");
}

QTEST_GUILESS_MAIN(TestPadsPageOnStage)
#include "test_padspageonstage.moc"
