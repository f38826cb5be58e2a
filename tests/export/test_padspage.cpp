#include "export/padspage.h"
#include "support/files.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QTextStream>
#include <QtTest>

namespace {

/** A pad as a person thinks of it: banks 1 to 8, pads 1 to 16. */
struct Pad
{
    int bank;
    int number;
    QString page;
    QString name;
    QString button;
    QString color;
    QString id = "0";
};

using Pads = QList<Pad>;

/** Fills a table of eight banks; the given pads over pads at rest. */
bool fill(QAbstractItemModel &table, const Pads &pads)
{
    constexpr int Banks = 8;
    if (!table.insertRows(0, Banks * 8))
        return false;
    Pads all;
    for (int bank = 1; bank <= Banks; ++bank) {
        for (int number = 1; number <= 16; ++number) {
            const QString label = "PAD " + QString::number(number);
            all += {bank, number, "0", label, label, "#000000", "-1"};
        }
    }
    for (const Pad &pad : all + pads) {
        const QModelIndex cell = table.index((pad.bank - 1) * 8 + (pad.number - 1) % 8, (pad.number - 1) / 8);
        if (!table.setData(cell, pad.name, Qt::EditRole) || !table.setData(cell, pad.page, PageRole)
            || !table.setData(cell, pad.button, DisplayNameRole) || !table.setData(cell, pad.id, ButtonRole)
            || !table.setData(cell, pad.color, Qt::DecorationRole))
            return false;
    }
    return true;
}

QByteArray written(const PadsPage &page, const char *codec = "UTF-8")
{
    return streamed([&page](QTextStream &out) { writePadsPage(out, page); }, codec);
}

QStringList defaultBanks()
{
    QStringList banks;
    for (int bank = 1; bank <= 8; ++bank)
        banks += "BANK " + QString::number(bank);
    return banks;
}

} // namespace

Q_DECLARE_METATYPE(Pads)

/** The bytes of a Pads Page. */
class TestPadsPage final : public QObject
{
    Q_OBJECT

private slots:
    void writesPages_data();
    void writesPages();
    void writesInTheCodecOfTheStream_data();
    void writesInTheCodecOfTheStream();
    void flushesEveryLine();
    void writesNoPadsOfAnEmptyTable();
};

void TestPadsPage::writesPages_data()
{
    QTest::addColumn<QString>("golden");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("banks");
    QTest::addColumn<int>("padsPerBank");
    QTest::addColumn<Pads>("pads");
    const QStringList banks = defaultBanks();
    QStringList movers = banks;
    movers[2] = "Movers";
    QStringList raw = banks;
    raw[0] = "Bank's \"A\" & <B>";
    QStringList unnamed = banks;
    unnamed[0] = "";
    const QString name = "OS2L DMX";
    const Pad strobe = {1, 1, "1", "Strobe", "Strobe", "#ff0000"};
    const Pad slow = {1, 3, "2", "Slow", "Strobe Slow", "#00FF7F"};

    const auto row = [&banks, &name](const char *title, const Pads &pads, const char *golden = "one-bank") {
        QTest::newRow(title) << QString("padspage-%1.xml").arg(golden) << name << banks << 8 << pads;
    };
    row("one bank", Pads{strobe, slow});
    row("a page that is no number is an empty pad",
        Pads{strobe, slow, {1, 5, "two", "Ghost", "Ghost", "#123456"}});
    row("a page that is an empty text is an empty pad",
        Pads{strobe, slow, {1, 8, "", "Ghost", "Ghost", "#123456"}});
    row("a button number without page is an empty pad",
        Pads{strobe, slow, {1, 2, "0", "Ghost", "Ghost", "#123456", "4"}});
    row("a typed label on an empty pad does not count",
        Pads{strobe, slow, {4, 6, "0", "Mine", "PAD 6", "#ffffff", "-1"}});
    row("a page without button number counts", Pads{{1, 1, "7", "Strobe", "Strobe", "#FF0000", "-1"}, slow});
    row("pads 9 to 16 of a bank in use are left out of 8 pads",
        Pads{strobe, slow, {1, 9, "1", "Hidden", "Hidden", "#123456"}});
    QTest::newRow("banks 1 and 3") << "padspage-banks-1-and-3.xml"
                                   << "Lights" << movers << 8
                                   << Pads{strobe,
                                           {1, 5, "1", "Home", "Home", "white"},
                                           {3, 2, "4", "Blue", "Blue", "#0000FF"},
                                           {3, 5, "4", "Haze", "Haze on", "#808080"},
                                           {3, 8, "12", "Off", "Blackout", "#000000"}};
    QTest::newRow("16 pads") << "padspage-16-pads.xml"
                             << "Big Page" << banks << 16
                             << Pads{{2, 1, "1", "Red", "Red", "#ff0000"},
                                     {2, 9, "1", "Green", "Green", "green"},
                                     {2, 16, "2", "Last", "The last one", "#0000ff"},
                                     {5, 10, "3", "Ten", "Button ten", "#FFAA00"},
                                     {5, 16, "3", "End", "The end", "#AA5500"}};
    row("8 pads, bank 2 in use by pad 12 alone", Pads{{2, 12, "1", "Hidden", "Hidden", "#123456"}},
        "second-column-only");
    row("pad 5 in bank 8 alone", Pads{{8, 5, "3", "Smoke", "Smoke", "#C0C0C0"}}, "pad-5-in-bank-8");
    QTest::newRow("quotes, ampersands and angle brackets go out raw")
        << "padspage-raw-names.xml"
        << "Rock & \"Roll\" <1>" << raw << 8
        << Pads{{1, 1, "1", "It's \"on\" & <off>", "R&B's <\"best\">", "#ff00ff"}};
    QTest::newRow("empty page name and bank name") << "padspage-empty-page-name.xml"
                                                   << "" << unnamed << 8 << Pads{strobe};
    row("negative page in a bank in use is left out",
        Pads{strobe,
             {1, 2, "-1", "Ghost", "Ghost", "#123456"},
             {2, 2, "1", "Blue", "Blue", "#0000ff"},
             {2, 3, "-7", "Ghost", "Ghost", "#123456"},
             {1, 4, "-1", "Ghost", "Ghost", "#123456"},
             {2, 4, "-1", "Ghost", "Ghost", "#123456"}},
        "negative-page");
    row("no bank in use, though a pad has a button number",
        Pads{{3, 4, "0", "Ghost", "Ghost", "#123456", "7"}}, "no-bank");
    row("negative page does not bring a bank into use", Pads{{3, 4, "-1", "Ghost", "Ghost", "#123456"}},
        "no-bank");
    row("page that is no number does not bring a bank into use",
        Pads{{3, 4, "1a", "Ghost", "Ghost", "#123456"}}, "no-bank");
    QTest::newRow("fewer bank names than banks")
        << "padspage-short-bank-list.xml" << name << QStringList{"Only one"} << 8
        << Pads{strobe, {2, 2, "1", "Blue", "Blue", "#0000ff"}};
}

void TestPadsPage::writesPages()
{
    QFETCH(const QString, golden);
    QFETCH(const QString, name);
    QFETCH(const QStringList, banks);
    QFETCH(const int, padsPerBank);
    QFETCH(const Pads, pads);
    VDJModel table;
    QVERIFY(fill(table, pads));
    QCOMPARE(
        difference(written({name, banks, padsPerBank, table}), bytesOf(QFINDTESTDATA("../data/" + golden))),
        QString());
}

void TestPadsPage::writesInTheCodecOfTheStream_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::newRow("UTF-8") << QByteArray("UTF-8");
    QTest::newRow("Latin-1, whatever the first line says") << QByteArray("ISO-8859-1");
}

void TestPadsPage::writesInTheCodecOfTheStream()
{
    QFETCH(const QByteArray, codec);
    const QString golden = QString::fromUtf8(bytesOf(QFINDTESTDATA("../data/padspage-beyond-ascii.xml")));
    VDJModel table;
    QVERIFY(fill(table,
                 {{1, 1, "1", QString::fromUtf8("Nebelstoß"), QString::fromUtf8("Été chaud"), "#ff0000"}}));
    const PadsPage page = {QString::fromUtf8("Läser & Été"), {QString::fromUtf8("Grüße")}, 8, table};
    QCOMPARE(difference(written(page, codec), codec == "UTF-8" ? golden.toUtf8() : golden.toLatin1()),
             QString());
}

/** Each line has reached the device before the next one begins. */
void TestPadsPage::flushesEveryLine()
{
    VDJModel table;
    QVERIFY(fill(table, {{1, 1, "1", "Strobe", "Strobe", "#ff0000"}}));
    const PadsPage page = {"OS2L DMX", defaultBanks(), 8, table};
    const QByteArrayList lines = pieces([&page](QTextStream &out) { writePadsPage(out, page); });
    QCOMPARE(lines.size(), 2 + 8 + 2);
    for (const QByteArray &line : lines)
        QCOMPARE(line.indexOf('\n'), line.size() - 1);
    QCOMPARE(lines.join(), written(page));
}

void TestPadsPage::writesNoPadsOfAnEmptyTable()
{
    const VDJModel table;
    QCOMPARE(difference(written({"OS2L DMX", defaultBanks(), 8, table}),
                        bytesOf(QFINDTESTDATA("../data/padspage-no-bank.xml"))),
             QString());
}

QTEST_GUILESS_MAIN(TestPadsPage)
#include "test_padspage.moc"
