#include "support/texts.h"
#include "tables/assignments.h"
#include "tables/roles.h"

#include <QStandardItemModel>
#include <QtTest>

namespace {

/** Button numbers of a table, row by row. */
using Numbers = QList<QStringList>;

bool fill(QStandardItemModel &table, const Numbers &numbers)
{
    table.setRowCount(numbers.size());
    table.setColumnCount(numbers.isEmpty() ? 2 : numbers.first().size());
    for (int row = 0; row < numbers.size(); ++row) {
        for (int column = 0; column < numbers.at(row).size(); ++column) {
            if (!table.setData(table.index(row, column), numbers.at(row).at(column), ButtonRole))
                return false;
        }
    }
    return true;
}

/** A model that keeps the order of what is written to it. */
class Recorder final : public QStandardItemModel
{
public:
    using QStandardItemModel::QStandardItemModel;

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        calls += QString("%1,%2 %3=%4").arg(index.row()).arg(index.column()).arg(role).arg(value.toString());
        return QStandardItemModel::setData(index, value, role);
    }

    QStringList calls;
};

} // namespace

Q_DECLARE_METATYPE(Numbers)

/** Which Live Buttons stand in a table. */
class TestAssignments final : public QObject
{
    Q_OBJECT

private slots:
    void findsButtons_data();
    void findsButtons();
    void countsTheFirstColumns_data();
    void countsTheFirstColumns();
    void asksForOneButton_data();
    void asksForOneButton();
    void labelsPads_data();
    void labelsPads();
    void clearsCells_data();
    void clearsCells();
    void clearsNothingWithoutACell();
};

void TestAssignments::findsButtons_data()
{
    QTest::addColumn<Numbers>("numbers");
    QTest::addColumn<QStringList>("buttons");

    const QStringList none;
    QTest::newRow("table without rows") << Numbers() << none;
    QTest::newRow("empty cells") << Numbers{{"-1", "-1"}, {"-1", "-1"}} << none;
    QTest::newRow("first button") << Numbers{{"-1", "-1"}, {"0", "-1"}} << QStringList{"0"};
    QTest::newRow("second column") << Numbers{{"-1", "-1"}, {"-1", "12"}} << QStringList{"12"};
    QTest::newRow("last cell of a grid")
        << Numbers{{"-1", "-1", "-1"}, {"-1", "-1", "7"}} << QStringList{"7"};
    QTest::newRow("three buttons") << Numbers{{"3", "-1"}, {"-1", "12"}, {"0", "-1"}}
                                   << QStringList{"0", "12", "3"};
    QTest::newRow("one button on three cells") << Numbers{{"3", "3"}, {"-1", "3"}} << QStringList{"3"};
    QTest::newRow("other negative numbers") << Numbers{{"-2", "-99"}} << none;
    QTest::newRow("a word counts as button 0") << Numbers{{"-1", "none"}} << QStringList{"none"};
    QTest::newRow("an empty text counts as button 0") << Numbers{{"-1", ""}} << QStringList{""};
}

void TestAssignments::findsButtons()
{
    QFETCH(const Numbers, numbers);
    QFETCH(const QStringList, buttons);
    QStandardItemModel table;
    QVERIFY(fill(table, numbers));
    QStringList found = Assignments::buttons(table, table.columnCount()).values();
    found.sort();
    QCOMPARE(found, buttons);
    QCOMPARE(Assignments::isEmpty(table), buttons.isEmpty());
}

void TestAssignments::countsTheFirstColumns_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("no column") << 0 << QStringList{};
    QTest::newRow("first column alone") << 1 << QStringList{"4"};
    QTest::newRow("two columns") << 2 << QStringList{"4", "5"};
    QTest::newRow("all columns") << 3 << QStringList{"4", "5", "6"};
}

void TestAssignments::countsTheFirstColumns()
{
    QFETCH(const int, columns);
    QFETCH(const QStringList, buttons);
    QStandardItemModel table;
    QVERIFY(fill(table, {{"4", "-1", "6"}, {"-1", "5", "-1"}}));
    QStringList found = Assignments::buttons(table, columns).values();
    found.sort();
    QCOMPARE(found, buttons);
    for (const int button : {4, 5, 6, 7})
        QCOMPARE(Assignments::holds(table, button, columns), buttons.contains(QString::number(button)));
}

void TestAssignments::asksForOneButton_data()
{
    QTest::addColumn<Numbers>("numbers");
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("inFirstColumn");
    QTest::addColumn<bool>("anywhere");
    QTest::newRow("on two pads") << Numbers{{"3", "-1"}, {"3", "-1"}} << 3 << true << true;
    QTest::newRow("on the second column alone") << Numbers{{"-1", "3"}, {"-1", "-1"}} << 3 << false << true;
    QTest::newRow("nowhere") << Numbers{{"13", "30"}, {"-3", "-1"}} << 3 << false << false;
    QTest::newRow("in the last row") << Numbers{{"-1", "-1"}, {"3", "-1"}} << 3 << true << true;
    QTest::newRow("written with zeros in front") << Numbers{{"003", "-1"}} << 3 << true << true;
    QTest::newRow("a cell without a number counts as button 0") << Numbers{{"-1", ""}} << 0 << false << true;
    QTest::newRow("button 0 is not an empty cell") << Numbers{{"-1", "-1"}} << 0 << false << false;
    QTest::newRow("an empty cell") << Numbers{{"3", "-1"}} << -1 << false << true;
    QTest::newRow("no empty cell") << Numbers{{"3", "4"}} << -1 << false << false;
    QTest::newRow("table without rows") << Numbers() << -1 << false << false;
}

void TestAssignments::asksForOneButton()
{
    QFETCH(const Numbers, numbers);
    QFETCH(const int, button);
    QFETCH(const bool, inFirstColumn);
    QFETCH(const bool, anywhere);
    QStandardItemModel table;
    QVERIFY(fill(table, numbers));
    QCOMPARE(Assignments::holds(table, button, 1), inFirstColumn);
    QCOMPARE(Assignments::holds(table, button, table.columnCount()), anywhere);
}

void TestAssignments::labelsPads_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("label");
    QTest::newRow("first row") << 0 << "PAD 1";
    QTest::newRow("last row of bank 1") << 7 << "PAD 8";
    QTest::newRow("first row of bank 2") << 8 << "PAD 1";
    QTest::newRow("a row of bank 5") << 35 << "PAD 4";
    QTest::newRow("last row") << 63 << "PAD 8";
}

void TestAssignments::labelsPads()
{
    QFETCH(const int, row);
    QFETCH(const QString, label);
    QCOMPARE(Assignments::padLabel(row), label);
}

void TestAssignments::clearsCells_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("left");
    QTest::newRow("black unless said") << QString() << Texts::NoColor;
    QTest::newRow("white") << "#FFFFFF"
                           << "#FFFFFF";
}

void TestAssignments::clearsCells()
{
    QFETCH(const QString, color);
    QFETCH(const QString, left);
    Recorder table(2, 2);
    const QModelIndex cell = table.index(1, 1);
    for (const int role : {int(AvailableRole), int(OffColorRole), int(OnColorRole), int(BlinkRole),
                           int(Qt::ForegroundRole), int(ButtonRole), int(PageRole)})
        QVERIFY(table.setData(cell, "5", role));
    table.calls.clear();

    if (color.isNull())
        Assignments::clearCell(table, cell, "PAD 2");
    else
        Assignments::clearCell(table, cell, "PAD 2", color);

    const QStringList calls = {"1,1 2=PAD 2", "1,1 257=PAD 2", "1,1 256=" + Texts::NoPage,
                               "1,1 259=" + Texts::NoButton, "1,1 1=" + left};
    QCOMPARE(table.calls, calls);
    QCOMPARE(cell.data(DisplayNameRole).toString(), QString("PAD 2"));
    // LED colours, blinking and the rest stay.
    for (const int role :
         {int(AvailableRole), int(OffColorRole), int(OnColorRole), int(BlinkRole), int(Qt::ForegroundRole)})
        QCOMPARE(cell.data(role).toString(), QString("5"));
}

void TestAssignments::clearsNothingWithoutACell()
{
    QStandardItemModel table;
    QVERIFY(fill(table, {{"3", "4"}}));
    Assignments::clearCell(table, QModelIndex(), "PAD 1");
    Assignments::clearCell(table, table.index(5, 5), "PAD 1");
    QCOMPARE(Assignments::buttons(table, 2), (QSet<QString>{"3", "4"}));
    QCOMPARE(table.rowCount(), 1);
}

QTEST_GUILESS_MAIN(TestAssignments)
#include "test_assignments.moc"
