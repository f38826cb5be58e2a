#include "support/workspace.h"

#include <QComboBox>

namespace {

/** Three pages of three, two and no buttons; a button of page 1 says that it is of page 2, one of page 9. */
const QByteArray Ini = "[page]\nnumber=3\n"
                       "[page1]\nname=Movers\nnb_buttons=5\n"
                       "[page2]\nname=Wash & Strobe\nnb_buttons=2\n"
                       "[page3]\nname=Empty\nnb_buttons=0\n"
                       "[page1_button1]\ntitle=A\ncolor=16711680\n"
                       "[page1_button2]\ntitle=B\n"
                       "[page1_button3]\ncolor=0\n"
                       "[page1_button4]\ntitle=D\npageid=2\n"
                       "[page1_button5]\ntitle=E\npageid=9\n"
                       "[page2_button1]\ntitle=It's \\\"F\\\"\ncolor=255\n"
                       "[page2_button2]\ntitle=G\n";
constexpr int Buttons = 7;

bool loadPages(Workspace &space)
{
    return space.load(space.writeShow("Pages", Ini));
}

/** The rows that the list shows, rising. */
QList<int> shown(Workspace &space)
{
    QList<int> rows;
    for (int row = 0; row < space.dmx()->rowCount(); ++row) {
        if (!space.dmxView()->isRowHidden(row))
            rows.append(row);
    }
    return rows;
}

const QList<int> AllRows = {0, 1, 2, 3, 4, 5, 6};

} // namespace

/** The list of Live Buttons and the page combo box that filters it. */
class TestPages final : public QObject
{
    Q_OBJECT

private slots:
    void nothingBeforeAShow();
    void rowsTakeTheRecords_data();
    void rowsTakeTheRecords();
    void rowsComeInOneInsert_data();
    void rowsComeInOneInsert();
    void listingAgainInsertsInFront();
    void comboListsThePages();
    void comboRowsAreTall();

    void pageShowsItsRows_data();
    void pageShowsItsRows();
    void slotsShowAPage_data();
    void slotsShowAPage();
    void noPageLeavesTheRows_data();
    void noPageLeavesTheRows();
    void filterNeverChangesTheModel();
    void hiddenRowsAreTickedAndKeepTheirTicks();
    void hiddenRowsTakePartInResets();
    void newShowStartsAtAllPages();
    void refillingTheComboShowsAllPages();

    void countsButtonsOfAPage_data();
    void countsButtonsOfAPage();
    void countsByTextAndFiltersByNumber();
    void makesColours_data();
    void makesColours();
    void escapes_data();
    void escapes();
    void escapesOnce_data();
    void escapesOnce();
};

void TestPages::nothingBeforeAShow()
{
    Workspace space;
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 0);
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), -1);
    QCOMPARE(space.dmx()->rowCount(), 0);
    for (const int page : {-1, 0, 1, 5})
        QVERIFY(space.call("updatelist", page));
    QCOMPARE(space.dmx()->rowCount(), 0);
}

void TestPages::rowsTakeTheRecords_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("color");
    QTest::newRow("first button") << 0 << "A"
                                  << "1"
                                  << "#ff0000";
    QTest::newRow("no colour") << 1 << "B"
                               << "1"
                               << "#ffffff";
    QTest::newRow("no title") << 2 << ""
                              << "1"
                              << "#000000";
    QTest::newRow("a page of its own") << 3 << "D"
                                       << "2"
                                       << "#ffffff";
    QTest::newRow("a page that is not there") << 4 << "E"
                                              << "9"
                                              << "#ffffff";
    QTest::newRow("quotes") << 5 << "It's \"F\""
                            << "2"
                            << "#0000ff";
    QTest::newRow("last button") << 6 << "G"
                                 << "2"
                                 << "#ffffff";
}

void TestPages::rowsTakeTheRecords()
{
    QFETCH(int, row);
    QFETCH(QString, title);
    QFETCH(QString, page);
    QFETCH(QString, color);

    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.dmx()->rowCount(), Buttons);
    const QModelIndex index = space.dmx()->index(row, 0);
    QCOMPARE(index.data(Qt::EditRole), QVariant(title));
    QCOMPARE(index.data(Qt::DisplayRole), QVariant(title));
    QCOMPARE(index.data(PageRole), QVariant(page));
    QCOMPARE(index.data(DisplayNameRole), QVariant(title));
    QCOMPARE(index.data(SourceRole), QVariant("1"));
    QCOMPARE(index.data(ButtonRole), QVariant(QString::number(row)));
    QCOMPARE(index.data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::white));
    QCOMPARE(index.data(Qt::ForegroundRole).value<QColor>(), QColor("#FFFFFF"));
    QCOMPARE(index.data(Qt::DecorationRole).value<QColor>(), QColor(color));
    QCOMPARE(index.data(Qt::CheckStateRole), QVariant(0));
}

void TestPages::rowsComeInOneInsert_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<int>("last");
    QTest::newRow("some buttons") << Ini << Buttons - 1;
    QTest::newRow("no buttons") << QByteArray("[page]\nnumber=1\n[page1]\nname=One\n") << -1;
}

void TestPages::rowsComeInOneInsert()
{
    QFETCH(QByteArray, ini);
    QFETCH(int, last);

    Workspace space;
    QSignalSpy inserted(space.dmx(), &QAbstractItemModel::rowsInserted);
    QVERIFY2(space.load(space.writeShow("Pages", ini)), qPrintable(space.dialogs.faults()));
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted.at(0).at(0).toModelIndex(), QModelIndex());
    QCOMPARE(inserted.at(0).at(1).toInt(), 0);
    QCOMPARE(inserted.at(0).at(2).toInt(), last);
}

void TestPages::listingAgainInsertsInFront()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.dmx()->setData(space.dmx()->index(0, 0), "Old", Qt::EditRole));
    QSignalSpy inserted(space.dmx(), &QAbstractItemModel::rowsInserted);
    QVERIFY(space.call("initlist"));
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted.at(0).at(1).toInt(), 0);
    QCOMPARE(inserted.at(0).at(2).toInt(), Buttons - 1);
    QCOMPARE(space.dmx()->rowCount(), 2 * Buttons);
    QCOMPARE(space.dmx()->index(0, 0).data().toString(), QString("A"));
    QCOMPARE(space.dmx()->index(Buttons, 0).data().toString(), QString("Old"));
}

void TestPages::comboListsThePages()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    auto *combo = space.find<QComboBox>("combobox");
    const QStringList expected = {"All Pages", "Movers", "Wash & Strobe", "Empty"};
    QCOMPARE(combo->count(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        QCOMPARE(combo->itemText(i), expected.at(i));
        QVERIFY(combo->itemIcon(i).isNull());
        QVERIFY(!combo->itemData(i).isValid());
    }
    QCOMPARE(combo->currentIndex(), 0);
}

void TestPages::comboRowsAreTall()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    auto *combo = space.find<QComboBox>("combobox");
    QCOMPARE(combo->count(), 4);
    for (int i = 0; i < combo->count(); ++i)
        QCOMPARE(combo->itemData(i, Qt::SizeHintRole).toSize(), QSize(25, 25));
}

void TestPages::pageShowsItsRows_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("all pages") << 0 << AllRows;
    QTest::newRow("page 1") << 1 << QList<int>{0, 1, 2};
    QTest::newRow("page 2, with a button that stands on page 1") << 2 << QList<int>{3, 5, 6};
    QTest::newRow("page without buttons") << 3 << QList<int>{};
}

void TestPages::pageShowsItsRows()
{
    QFETCH(int, page);
    QFETCH(QList<int>, rows);

    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(shown(space), AllRows);

    // By way of another page, and back to all at the end.
    QVERIFY(space.choose("combobox", 3));
    QVERIFY(space.choose("combobox", page));
    QCOMPARE(shown(space), rows);
    QVERIFY(space.choose("combobox", 0));
    QCOMPARE(shown(space), AllRows);
}

void TestPages::slotsShowAPage_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("page");
    QTest::addColumn<QList<int>>("rows");
    for (const QByteArray slot : {"updatelist", "on_combobox_currentIndexChanged"}) {
        QTest::addRow("%s: page 1", slot.constData()) << slot << 1 << QList<int>{0, 1, 2};
        QTest::addRow("%s: page of one button, in no combo box", slot.constData())
            << slot << 9 << QList<int>{4};
        QTest::addRow("%s: page that is nowhere", slot.constData()) << slot << 4 << QList<int>{};
        QTest::addRow("%s: all pages", slot.constData()) << slot << 0 << AllRows;
    }
}

void TestPages::slotsShowAPage()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, page);
    QFETCH(QList<int>, rows);

    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.call("updatelist", 2));
    QVERIFY(space.call(slot, page));
    QCOMPARE(shown(space), rows);
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
}

void TestPages::noPageLeavesTheRows_data()
{
    QTest::addColumn<bool>("byClearing");
    QTest::newRow("called with -1") << false;
    QTest::newRow("combo box cleared") << true;
}

void TestPages::noPageLeavesTheRows()
{
    QFETCH(bool, byClearing);

    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combobox", 1));
    if (byClearing)
        space.find<QComboBox>("combobox")->clear();
    else
        QVERIFY(space.call("updatelist", -1));
    QCOMPARE(shown(space), QList<int>({0, 1, 2}));
}

void TestPages::filterNeverChangesTheModel()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(0, 0));
    QSignalSpy inserted(space.dmx(), &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(space.dmx(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy changed(space.dmx(), &QAbstractItemModel::dataChanged);
    const QStringList before = space.snapshot();

    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.snapshot() != before);
    QVERIFY(space.choose("combobox", 0));
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(inserted.count() + removed.count() + changed.count(), 0);
}

void TestPages::hiddenRowsAreTickedAndKeepTheirTicks()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(1, 0));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.dmxView()->isRowHidden(1));
    QCOMPARE(space.ticked(), QList<int>({1}));

    // A button of a hidden row replaces one whose row is shown, and the other way about.
    QVERIFY(space.putOnPad(5, 1));
    QVERIFY(space.putOnPad(2, 1));
    QCOMPARE(space.ticked(), QList<int>({1, 2}));
    QVERIFY(space.putOnPad(6, 0));
    QCOMPARE(space.ticked(), QList<int>({2, 6}));
    QCOMPARE(shown(space), QList<int>({3, 5, 6}));

    QVERIFY(space.choose("combobox", 0));
    QCOMPARE(space.ticked(), QList<int>({2, 6}));
}

void TestPages::hiddenRowsTakePartInResets()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(0, 0));
    QVERIFY(space.putOnPad(6, 1));
    QVERIFY(space.choose("combobox", 3));
    QCOMPARE(shown(space), QList<int>());

    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>({0, 6}));
    QCOMPARE(shown(space), QList<int>());
}

void TestPages::newShowStartsAtAllPages()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combobox", 3));
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    QCOMPARE(shown(space), AllRows);
}

void TestPages::refillingTheComboShowsAllPages()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combobox", 1));
    QVERIFY(space.call("updatecombo"));
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 4);
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    QCOMPARE(shown(space), AllRows);
}

void TestPages::countsButtonsOfAPage_data()
{
    QTest::addColumn<bool>("isShowLoaded");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("buttons");
    QTest::newRow("no show, page 0") << false << 0 << 0;
    QTest::newRow("no show, page 1") << false << 1 << 0;
    QTest::newRow("all pages is no page") << true << 0 << 0;
    QTest::newRow("page 1") << true << 1 << 3;
    QTest::newRow("page 2, with a button that stands on page 1") << true << 2 << 3;
    QTest::newRow("page without buttons") << true << 3 << 0;
    QTest::newRow("page of a button alone") << true << 9 << 1;
    QTest::newRow("page that is nowhere") << true << 4 << 0;
    QTest::newRow("below zero") << true << -1 << 0;
}

void TestPages::countsButtonsOfAPage()
{
    QFETCH(bool, isShowLoaded);
    QFETCH(int, page);
    QFETCH(int, buttons);

    Workspace space;
    if (isShowLoaded)
        QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.ask<int>("buttonsperpage", page), buttons);
}

void TestPages::countsByTextAndFiltersByNumber()
{
    Workspace space;
    QVERIFY2(space.load(space.writeShow("Pages", "[page]\nnumber=1\n[page1]\nnb_buttons=2\n"
                                                 "[page1_button1]\npageid=01\n[page1_button2]\npageid=1\n")),
             qPrintable(space.dialogs.faults()));
    QCOMPARE(space.ask<int>("buttonsperpage", 1), 1);
    QVERIFY(space.choose("combobox", 1));
    QCOMPARE(shown(space), QList<int>({0, 1}));
}

void TestPages::makesColours_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("color");
    QTest::newRow("empty") << ""
                           << "#ffffff";
    QTest::newRow("one digit") << "0"
                               << "#000000";
    QTest::newRow("three digits") << "ABC"
                                  << "#000ABC";
    QTest::newRow("five digits") << "12345"
                                 << "#012345";
    QTest::newRow("six digits") << "FF8000"
                                << "#FF8000";
    QTest::newRow("seven digits") << "1FF8000"
                                  << "#1FF8000";
    QTest::newRow("sixteen digits") << "FFFFFFFFFFFFFFFF"
                                    << "#FFFFFFFFFFFFFFFF";
    QTest::newRow("letter case stays") << "aBc"
                                       << "#000aBc";
    QTest::newRow("no digits") << "red"
                               << "#000red";
    QTest::newRow("a hash of its own") << "#ABCDEF"
                                       << "##ABCDEF";
    QTest::newRow("a blank") << " "
                             << "#00000 ";
}

void TestPages::makesColours()
{
    QFETCH(QString, text);
    QFETCH(QString, color);

    Workspace space;
    QCOMPARE(space.ask<QString>("getcolor", text), color);
}

void TestPages::escapes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("plain") << "deck left play"
                           << "deck left play";
    QTest::newRow("single quote") << "It's"
                                  << "It&apos;s";
    QTest::newRow("double quotes") << "say \"go\""
                                   << "say &quot;go&quot;";
    QTest::newRow("ampersand between blanks") << "Rock & Roll"
                                              << "Rock &amp; Roll";
    QTest::newRow("ampersand without blanks") << "R&B"
                                              << "R&B";
    QTest::newRow("blank in front alone") << "R &B"
                                          << "R &B";
    QTest::newRow("blank behind alone") << "R& B"
                                        << "R& B";
    QTest::newRow("ampersand at an end") << "& Roll"
                                         << "& Roll";
    QTest::newRow("two that share a blank") << "a & & b"
                                            << "a &amp; & b";
    QTest::newRow("angle brackets") << "<a> < b"
                                    << "<a> < b";
    QTest::newRow("all of them") << "'a' & \"b\" & c"
                                 << "&apos;a&apos; &amp; &quot;b&quot; &amp; c";
}

void TestPages::escapes()
{
    QFETCH(QString, text);
    QFETCH(QString, escaped);

    Workspace space;
    QCOMPARE(space.ask<QString>("xmlparse", text), escaped);
}

void TestPages::escapesOnce_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("single quote") << "It's";
    QTest::newRow("double quote") << "\"go\"";
    QTest::newRow("ampersand between blanks") << " & ";
}

void TestPages::escapesOnce()
{
    QFETCH(QString, text);

    Workspace space;
    const QString once = space.ask<QString>("xmlparse", text);
    QVERIFY(once != text);
    QCOMPARE(space.ask<QString>("xmlparse", once), once);
}

QTEST_MAIN(TestPages)
#include "test_pages.moc"
