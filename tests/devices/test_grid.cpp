#include "devices/grid.h"

#include <QtTest>

#include <limits>

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

Record device(const char *top, const char *left, const char *bottom, const char *right)
{
    return {{"top", top}, {"left", left}, {"bottom", bottom}, {"right", right}};
}

} // namespace

/** Labels and keys of the 12 by 12 scheme. */
class TestGrid final : public QObject
{
    Q_OBJECT

private slots:
    void labelsOfAllCells();
    void labelsOutsideTheGrid_data();
    void labelsOutsideTheGrid();
    void keysOfDevices_data();
    void keysOfDevices();
    void keysOfBands_data();
    void keysOfBands();
    void keysOfCorners_data();
    void keysOfCorners();
    void keysOutsideTheGrid_data();
    void keysOutsideTheGrid();
    void sectionSizes();
};

void TestGrid::labelsOfAllCells()
{
    // The picture as it hangs on the wall; a dot is a cell without label.
    const QByteArrayList picture = {
        ". . T T T T T T T T . .", ". . . . . . . . . . . .", "L . P P P P P P P P . R",
        "L . P P P P P P P P . R", "L . P P P P P P P P . R", "L . P P P P P P P P . R",
        "L . P P P P P P P P . R", "L . P P P P P P P P . R", "L . P P P P P P P P . R",
        "L . P P P P P P P P . R", ". . . . . . . . . . . .", ". . B B B B B B B B . .",
    };
    const QHash<char, QString> bands = {
        {'T', "TOP "}, {'L', "LEFT "}, {'P', "PAD "}, {'R', "RIGHT "}, {'B', "BOTTOM "}};
    QCOMPARE(Grid::Size, picture.size());
    QHash<char, int> counts;
    for (int row = 0; row < Grid::Size; ++row) {
        for (int col = 0; col < Grid::Size; ++col) {
            const char band = picture.at(row).at(2 * col);
            const QString label =
                band == '.' ? QString() : bands.value(band) + QString::number(++counts[band]);
            QCOMPARE(Grid::label(row, col), label);
        }
    }
}

void TestGrid::labelsOutsideTheGrid_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("above") << -1 << 5;
    QTest::newRow("below") << 12 << 5;
    QTest::newRow("left") << 5 << -1;
    QTest::newRow("right") << 5 << 12;
    QTest::newRow("no cell") << -1 << -1;
    QTest::newRow("far below") << Largest << 5;
    QTest::newRow("far right") << 5 << Largest;
    QTest::newRow("far above and left") << Smallest << Smallest;
    QTest::newRow("far in the top band") << 0 << Smallest;
    QTest::newRow("far in the bottom band") << 11 << Smallest;
    QTest::newRow("far in the left band") << Smallest << 0;
    QTest::newRow("far in the right band") << Smallest << 11;
}

/** What such a cell is called does not matter; asking for it must not break anything. */
void TestGrid::labelsOutsideTheGrid()
{
    QFETCH(const int, row);
    QFETCH(const int, col);
    QVERIFY(Grid::label(row, col).size() < 40);
}

void TestGrid::keysOfDevices_data()
{
    QTest::addColumn<Record>("device");
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("right");
    QTest::newRow("AKAI APC Mini") << device("0", "0", "8", "8") << 0 << 0 << 8 << 8;
    QTest::newRow("Novation Launchpad, S, Mini and MKII") << device("8", "0", "0", "8") << 8 << 0 << 0 << 8;
    QTest::newRow("Novation Launchpad Mini MK3") << device("4", "0", "0", "8") << 4 << 0 << 0 << 8;
    QTest::newRow("Novation Launchpad PRO") << device("4", "8", "8", "8") << 4 << 8 << 8 << 8;
    QTest::newRow("all bands differ") << device("1", "2", "3", "4") << 1 << 2 << 3 << 4;
    Record withFaders = device("0", "0", "8", "8");
    withFaders["faders"] = "99";
    QTest::newRow("faders are no band") << withFaders << 0 << 0 << 8 << 8;
    QTest::newRow("no device") << Record() << 0 << 0 << 0 << 0;
    QTest::newRow("empty counts") << device("", "", "", "") << 0 << 0 << 0 << 0;
    QTest::newRow("negative counts") << device("-1", "-8", "-2", "-2147483648") << 0 << 0 << 0 << 0;
    QTest::newRow("counts that are no numbers") << device("four", "8.0", "0x8", "8 keys") << 0 << 0 << 0 << 0;
    QTest::newRow("counts too large for a number")
        << device("99999999999", "2147483648", "1e3", "0") << 0 << 0 << 0 << 0;
}

void TestGrid::keysOfDevices()
{
    QFETCH(const Record, device);
    QFETCH(const int, top);
    QFETCH(const int, left);
    QFETCH(const int, bottom);
    QFETCH(const int, right);
    // A band's keys start at its first cell, which is row or column 2.
    QSet<QPair<int, int>> keys;
    for (int row = 2; row <= 9; ++row) {
        for (int col = 2; col <= 9; ++col)
            keys.insert({row, col});
    }
    for (int key = 0; key < top; ++key)
        keys.insert({0, 2 + key});
    for (int key = 0; key < left; ++key)
        keys.insert({2 + key, 0});
    for (int key = 0; key < bottom; ++key)
        keys.insert({11, 2 + key});
    for (int key = 0; key < right; ++key)
        keys.insert({2 + key, 11});

    for (int row = 0; row < Grid::Size; ++row) {
        for (int col = 0; col < Grid::Size; ++col)
            QVERIFY2(Grid::hasKey(device, row, col) == keys.contains({row, col}),
                     qPrintable(QString("row %1, column %2").arg(row).arg(col)));
    }
}

void TestGrid::keysOfBands_data()
{
    QTest::addColumn<QString>("count");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("hasKey");
    QTest::newRow("corner before the band") << "8" << 0 << false;
    QTest::newRow("gap before the band") << "8" << 1 << false;
    QTest::newRow("first cell of one key") << "1" << 2 << true;
    QTest::newRow("second cell of one key") << "1" << 3 << false;
    QTest::newRow("first cell of no key") << "0" << 2 << false;
    QTest::newRow("fourth cell of four keys") << "4" << 5 << true;
    QTest::newRow("fifth cell of four keys") << "4" << 6 << false;
    QTest::newRow("last cell of eight keys") << "8" << 9 << true;
    QTest::newRow("last cell of seven keys") << "7" << 9 << false;
    QTest::newRow("gap behind eight keys") << "8" << 10 << false;
    QTest::newRow("gap behind twelve keys") << "12" << 10 << false;
    QTest::newRow("the largest number of keys") << "2147483647" << 9 << true;
    QTest::newRow("gap in the largest number of keys") << "2147483647" << 10 << false;
}

void TestGrid::keysOfBands()
{
    QFETCH(const QString, count);
    QFETCH(const int, position);
    QFETCH(const bool, hasKey);
    QCOMPARE(Grid::hasKey({{"top", count}}, 0, position), hasKey);
    QCOMPARE(Grid::hasKey({{"bottom", count}}, 11, position), hasKey);
    QCOMPARE(Grid::hasKey({{"left", count}}, position, 0), hasKey);
    QCOMPARE(Grid::hasKey({{"right", count}}, position, 11), hasKey);
    // The other bands know nothing of it.
    if (position >= 2 && position <= 9) {
        QVERIFY(!Grid::hasKey({{"top", count}}, 11, position));
        QVERIFY(!Grid::hasKey({{"left", count}}, position, 11));
    }
}

void TestGrid::keysOfCorners_data()
{
    QTest::addColumn<Record>("device");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<bool>("hasKey");
    QTest::newRow("top right, eight keys on top") << device("8", "0", "0", "8") << 0 << 11 << false;
    QTest::newRow("top right, nine keys on top") << device("9", "0", "0", "0") << 0 << 11 << false;
    QTest::newRow("top right, ten keys on top") << device("10", "0", "0", "0") << 0 << 11 << true;
    QTest::newRow("top left, whatever the bands") << device("99", "99", "99", "99") << 0 << 0 << false;
    QTest::newRow("bottom right, ten keys below") << device("0", "0", "10", "0") << 11 << 11 << true;
    QTest::newRow("bottom right, ten keys on the right") << device("0", "0", "0", "10") << 11 << 11 << false;
    QTest::newRow("bottom left, ten keys on the left") << device("0", "10", "0", "0") << 11 << 0 << false;
}

void TestGrid::keysOfCorners()
{
    QFETCH(const Record, device);
    QFETCH(const int, row);
    QFETCH(const int, col);
    QFETCH(const bool, hasKey);
    QCOMPARE(Grid::hasKey(device, row, col), hasKey);
}

void TestGrid::keysOutsideTheGrid_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("before the top band") << 0 << -1;
    QTest::newRow("far before the top band") << 0 << Smallest;
    QTest::newRow("far before the bottom band") << 11 << Smallest;
    QTest::newRow("far before the left band") << Smallest << 0;
    QTest::newRow("far before the right band") << Smallest << 11;
    QTest::newRow("behind the top band") << 0 << 13;
    QTest::newRow("far behind the top band") << 0 << Largest;
    QTest::newRow("far behind the right band") << Largest << 11;
}

void TestGrid::keysOutsideTheGrid()
{
    QFETCH(const int, row);
    QFETCH(const int, col);
    QVERIFY(!Grid::hasKey(device("8", "8", "8", "8"), row, col));
}

void TestGrid::sectionSizes()
{
    for (int section = 0; section < Grid::Size; ++section) {
        const bool isGap = section == 1 || section == 10;
        QCOMPARE(Grid::isGap(section), isGap);
        QCOMPARE(Grid::columnWidth(section), isGap ? 5 : 95);
        QCOMPARE(Grid::rowHeight(section), isGap ? 5 : 30);
    }
}

QTEST_APPLESS_MAIN(TestGrid)
#include "test_grid.moc"
