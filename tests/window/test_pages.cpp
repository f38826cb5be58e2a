#include "support/workspace.h"

#include <QComboBox>

namespace {

/** Three pages of five, two and no buttons; a button of page 1 says that it is of page 2, one of page 9. */
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

const QList<int> AllRows = {0, 1, 2, 3, 4, 5, 6};

bool loadPages(Workspace &space, const QByteArray &ini = Ini)
{
    return space.load(space.writeShow("Pages", ini));
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

} // namespace

/** The list of Live Buttons and the page combo box that filters it. */
class TestPages final : public QObject
{
    Q_OBJECT

private slots:
    void nothingBeforeAShow();
    void rowsComeInOneInsert();
    void pageShowsItsRows_data();
    void pageShowsItsRows();
    void noPageLeavesTheRows();
    void refillingTheComboShowsAllPages();
    void countsButtonsOfAPage_data();
    void countsButtonsOfAPage();
    void countsByTextAndFiltersByNumber();
};

void TestPages::nothingBeforeAShow()
{
    Workspace space;
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), -1);
    for (const int page : {-1, 0, 1, 5})
        QVERIFY(space.call("updatelist", page));
    QCOMPARE(space.ask<int>("buttonsperpage", 0), 0);
    QCOMPARE(space.ask<int>("buttonsperpage", 1), 0);
    QCOMPARE(space.dmx()->rowCount(), 0);
}

void TestPages::rowsComeInOneInsert()
{
    Workspace space;
    QSignalSpy inserted(space.dmx(), &QAbstractItemModel::rowsInserted);
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(inserted, QList<QVariantList>({{QModelIndex(), 0, 6}}));
    inserted.clear();

    // Listed once more, the rows go in front of the old ones.
    QVERIFY(space.dmx()->setData(space.dmx()->index(0, 0), "Old", Qt::EditRole));
    QVERIFY(space.call("initlist"));
    QCOMPARE(inserted, QList<QVariantList>({{QModelIndex(), 0, 6}}));
    QCOMPARE(space.dmx()->index(0, 0).data().toString(), QString("A"));
    QCOMPARE(space.dmx()->index(7, 0).data().toString(), QString("Old"));
    inserted.clear();

    // Without a button it is an insert of no rows.
    QVERIFY(loadPages(space, "[page]\nnumber=1\n[page1]\nname=One\n"));
    QCOMPARE(inserted, QList<QVariantList>({{QModelIndex(), 0, -1}}));
}

void TestPages::pageShowsItsRows_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("all pages") << 0 << AllRows;
    QTest::newRow("page 1") << 1 << QList<int>{0, 1, 2};
    QTest::newRow("page 2, with a button that stands on page 1") << 2 << QList<int>{3, 5, 6};
    QTest::newRow("page without buttons") << 3 << QList<int>{};
    QTest::newRow("page of one button, in no combo box") << 9 << QList<int>{4};
    QTest::newRow("page that is nowhere") << 4 << QList<int>{};
}

void TestPages::pageShowsItsRows()
{
    QFETCH(int, page);
    QFETCH(QList<int>, rows);

    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(shown(space), AllRows);
    for (const char *slot : {"updatelist", "on_combobox_currentIndexChanged"}) {
        QVERIFY(space.call(slot, 2) && space.call(slot, page));
        QCOMPARE(shown(space), rows);
        QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    }
}

void TestPages::noPageLeavesTheRows()
{
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combobox", 1));
    QVERIFY(space.call("updatelist", -1));
    QCOMPARE(shown(space), QList<int>({0, 1, 2}));
    space.find<QComboBox>("combobox")->clear();
    QCOMPARE(shown(space), QList<int>({0, 1, 2}));
}

void TestPages::refillingTheComboShowsAllPages()
{
    Workspace space;
    QVERIFY2(loadPages(space) && space.choose("combobox", 1), qPrintable(space.dialogs.faults()));
    QVERIFY(space.call("updatecombo"));
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 4);
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    QCOMPARE(shown(space), AllRows);
}

void TestPages::countsButtonsOfAPage_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("buttons");
    QTest::newRow("all pages is no page") << 0 << 0;
    QTest::newRow("page 1") << 1 << 3;
    QTest::newRow("page 2, with a button that stands on page 1") << 2 << 3;
    QTest::newRow("page without buttons") << 3 << 0;
    QTest::newRow("page of a button alone") << 9 << 1;
    QTest::newRow("page that is nowhere") << 4 << 0;
    QTest::newRow("below zero") << -1 << 0;
}

void TestPages::countsButtonsOfAPage()
{
    QFETCH(int, page);
    QFETCH(int, buttons);
    Workspace space;
    QVERIFY2(loadPages(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.ask<int>("buttonsperpage", page), buttons);
}

void TestPages::countsByTextAndFiltersByNumber()
{
    Workspace space;
    QVERIFY2(loadPages(space, "[page]\nnumber=1\n[page1]\nnb_buttons=2\n"
                              "[page1_button1]\npageid=01\n[page1_button2]\npageid=1\n"),
             qPrintable(space.dialogs.faults()));
    QCOMPARE(space.ask<int>("buttonsperpage", 1), 1);
    QVERIFY(space.choose("combobox", 1));
    QCOMPARE(shown(space), QList<int>({0, 1}));
}

QTEST_MAIN(TestPages)
#include "test_pages.moc"
