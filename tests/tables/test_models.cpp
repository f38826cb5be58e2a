#include "support/models.h"
#include "support/payload.h"
#include "tables/controller.h"
#include "tables/mymodel.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QMimeData>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

using Model = std::unique_ptr<QAbstractItemModel>;

QList<Record> cellByCell(const QList<Record> &rows)
{
    return rows;
}

QList<Record> cellByCell(const QList<QList<Record>> &rows)
{
    QList<Record> cells;
    for (const QList<Record> &row : rows)
        cells += row;
    return cells;
}

/** One of the three tables: in what it differs from the others where all do alike. */
struct Kind
{
    QByteArrayList classAndSignals;
    int columns = 0;
    Record fresh;            // each cell of a new row
    QMap<int, QString> keys; // by role, those that keep any text
    QVariantList header;     // of the columns from -1 on
    QVariant rowHeader;
    QByteArray dragBytes;    // of a filled cell, behind row and column
    QStringList dragOfFresh; // the texts of a cell of a new row
    QStringList dragOfGone;  // the texts of row 1 where there is no such row any more
    std::function<Model()> make;
    std::function<QList<Record>(const QAbstractItemModel &)> cells; // row by row

    /** A table whose rows differ by the texts in their first column. */
    Model filled(const QStringList &texts) const
    {
        Model model = make();
        model->insertRows(0, texts.size());
        for (int row = 0; row < texts.size(); ++row)
            model->setData(model->index(row, 0), texts.at(row));
        return model;
    }
};

template<class T>
Kind kindOf(int columns, const QByteArrayList &classAndSignals)
{
    Kind kind;
    kind.columns = columns;
    kind.classAndSignals = classAndSignals;
    kind.make = [] { return std::make_unique<T>(); };
    kind.cells = [](const QAbstractItemModel &model) {
        return cellByCell(static_cast<const T &>(model).getlist());
    };
    return kind;
}

Kind liveButtons()
{
    Kind kind = kindOf<MyModel>(1, {"MyModel", "ItemUnchecked(int)"});
    kind.fresh = {{"title", "1"},    {"dspname", "1"}, {"color", "#FFFFFF"},     {"pageid", "0"},
                  {"buttonid", "0"}, {"check", "0"},   {"textcolor", "#ffffff"}, {"source", "1"}};
    kind.keys = {{0, "title"},    {1, "color"},     {2, "title"},    {9, "textcolor"},
                 {256, "pageid"}, {257, "dspname"}, {258, "source"}, {259, "buttonid"}};
    kind.header = {{}, "Color", "Name", {}}; // of a column that does not exist, too

    kind.dragBytes = "00000006 00c4 d83d dca1"     // A umlaut, a bulb
                     "00000002 0033"               // page 3
                     "00000000"                    // display name, empty
                     "00000002 0031"               // from the Live Buttons
                     "00000004 0034 0031"          // button 41
                     "00000002 0031"               // available
                     "ffffffff ffffffff ffffffff"; // no LED colours, no blink
    kind.dragOfFresh = QStringList{"0", "0", "1", "0", "1", "1", "0", "1", {}, {}, {}};
    kind.dragOfGone = QStringList{"1", "0", {}, {}, {}, "1", {}, "1", {}, {}, {}};
    return kind;
}

Kind pads()
{
    Kind kind =
        kindOf<VDJModel>(2, {"VDJModel", "ItemDroped(int,int)", "ItemMoved(int)", "ItemToUncheck(int)"});
    kind.fresh = {{"name", "1"}, {"dspname", "1"}, {"id", "-1"}, {"color", "#000000"}, {"pagenr", "0"}};
    kind.keys = {{0, "name"}, {1, "color"}, {2, "name"}, {256, "pagenr"}, {257, "dspname"}, {259, "id"}};
    kind.header = {{}, "Color", "Name", {}};
    kind.dragBytes = "00000006 00c4 d83d dca1 00000002 0033 00000000"
                     "00000002 0030"       // from the same table
                     "00000004 0034 0031"; // button 41
    kind.dragOfFresh = QStringList{"0", "0", "1", "0", "1", "0", "-1"};
    kind.dragOfGone = QStringList{"1", "0", {}, {}, {}, "0", {}};
    return kind;
}

Kind grid()
{
    Kind kind = kindOf<Controller>(12, {"Controller", "ItemDroped(int,int,int)", "ItemToUncheck(int)"});
    kind.fresh = {{"name", ""},         {"dspname", ""},         {"id", "-1"},    {"avail", "1"},
                  {"color", "#000000"}, {"coloroff", ""},        {"coloron", ""}, {"blink", "0"},
                  {"pagenr", "0"},      {"textcolor", "#ffffff"}};
    kind.keys = {{0, "name"},       {1, "color"},     {2, "name"},   {9, "textcolor"},
                 {256, "pagenr"},   {257, "dspname"}, {259, "id"},   {260, "avail"},
                 {261, "coloroff"}, {262, "coloron"}, {263, "blink"}};
    kind.header = {{}, "Color", {}, {}};
    kind.rowHeader = "";
    kind.dragBytes = "00000006 00c4 d83d dca1 00000002 0033 00000000 00000002 0030 00000004 0034 0031"
                     "00000002 0031"                // available
                     "00000006 0072 0065 0064"      // off colour
                     "00000008 0023 0030 0046 0030" // on colour
                     "00000002 0031";               // blink
    // empty, not null
    kind.dragOfFresh = QStringList{"0", "0", "", "0", "", "0", "-1", "1", "", "", "0"};
    kind.dragOfGone = QStringList{"1", "0", {}, {}, {}, "0", {}, {}, {}, {}, {}};
    return kind;
}

bool isColor(int role)
{
    return role == Qt::DecorationRole || role == Qt::ForegroundRole;
}

} // namespace

Q_DECLARE_METATYPE(Kind)

/** What the three tables have in common; each function is run for each of them. */
class TestModels final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void sharedNumbers();
    void classOfTheTable();
    void listGivenAtStart();
    void emptyTable();
    void freshRows();
    void parentDoesNotMatter();
    void roles_data();
    void roles();
    void onlyLiveButtonsHaveTicks();
    void background();
    void colors_data();
    void colors();
    void offTheTable_data();
    void offTheTable();
    void header();
    void actions();
    void insertRows_data();
    void insertRows();
    void removeRows_data();
    void removeRows();
    void dragBytes();
    void dragOfFreshCell();
    void dragOfRowThatIsGone();
    void dropWithoutEffect_data();
    void dropWithoutEffect();
    void neverTellsOfChanges();
    void modelContract();
    void frontStorageBreaksTheContract();

private:
    Kind kind;
};

void TestModels::initTestCase_data()
{
    QTest::addColumn<Kind>("table");
    QTest::newRow("Live Buttons") << liveButtons();
    QTest::newRow("pads") << pads();
    QTest::newRow("grid") << grid();
}

void TestModels::init()
{
    QFETCH_GLOBAL(Kind, table);
    kind = table;
}

void TestModels::sharedNumbers()
{
    const QList<int> numbers = {PageRole,      DisplayNameRole, SourceRole,  ButtonRole,
                                AvailableRole, OffColorRole,    OnColorRole, BlinkRole};
    QCOMPARE(numbers, (QList<int>{256, 257, 258, 259, 260, 261, 262, 263}));
}

void TestModels::classOfTheTable()
{
    const Model model = kind.make();
    const QMetaObject *meta = model->metaObject();
    QByteArrayList names = {meta->className()};
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        names += meta->method(i).methodSignature();
    QCOMPARE(names, kind.classAndSignals);
    QCOMPARE(meta->superClass()->className(), "QAbstractTableModel");
}

template<class T, class Rows>
void keepsList(const Rows &rows)
{
    QObject parent;
    auto *model = new T(rows, &parent);
    QCOMPARE(model->parent(), &parent);
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->getlist(), rows);
    for (const int role : {int(Qt::EditRole), int(PageRole), int(DisplayNameRole), int(ButtonRole)})
        QCOMPARE(model->index(0, 0).data(role), QVariant("")); // what a record lacks is empty
}

void TestModels::listGivenAtStart()
{
    keepsList<MyModel>(QList<Record>{{{"check", "1"}}});
    keepsList<VDJModel>(QList<QList<Record>>{{{{"color", "red"}}, {}}});
    keepsList<Controller>(QList<QList<Record>>{{{{"blink", "1"}}, {}}});
}

void TestModels::emptyTable()
{
    const Model model = kind.make();
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), kind.columns);
    QCOMPARE(kind.cells(*model), QList<Record>());
    for (int role = 0; role < 264; ++role) {
        QCOMPARE(model->data({}, role), QVariant());
        QCOMPARE(model->data(Models::lostIndex(*model, 0, 0), role), QVariant());
    }
}

void TestModels::freshRows()
{
    const Model model = kind.make();
    QVERIFY(model->insertRows(0, 2));
    QCOMPARE(kind.cells(*model), QVector<Record>(2 * kind.columns, kind.fresh).toList());
}

void TestModels::parentDoesNotMatter()
{
    const Model model = kind.filled({"a", "b", "c"});
    QCOMPARE(model->rowCount(model->index(1, 0)), 3);
    QCOMPARE(model->columnCount(model->index(1, 0)), kind.columns);
}

void TestModels::roles_data()
{
    QTest::addColumn<int>("role");
    for (const int role : {-1, 0, 1, 2, 4, 5, 6, 7, 9, 13, 255, 256, 257, 258, 259, 260, 261, 262, 263, 264})
        QTest::addRow("%d", role) << role;
}

/** A role reads and writes the text of its key, or nothing. */
void TestModels::roles()
{
    QFETCH(int, role);
    const Model model = kind.filled({"a", "b", "c"});
    const QModelIndex cell = model->index(1, kind.columns - 1);
    const QString key = kind.keys.value(role);
    QList<Record> expected = kind.cells(*model);
    const QList<QPair<QVariant, QString>> values = {
        {"Fog", "Fog"}, {"  ", "  "},           {12, "12"},
        {-1, "-1"},     {"#AbCdEf", "#AbCdEf"}, {QColor(1, 2, 3), "#010203"}};
    for (const auto &[value, text] : values) {
        QCOMPARE(model->setData(cell, value, role), !key.isEmpty());
        if (!key.isEmpty())
            expected[2 * kind.columns - 1][key] = text;
        QCOMPARE(kind.cells(*model), expected);
        const QVariant none = key.isEmpty() ? QVariant() : QVariant(text);
        QCOMPARE(cell.data(role), isColor(role) && none.isValid() ? QVariant(QColor(text)) : none);
    }
}

void TestModels::onlyLiveButtonsHaveTicks()
{
    const Model model = kind.filled({"a"});
    const bool hasTicks = kind.fresh.contains("check");
    QCOMPARE(model->index(0, 0).data(Qt::CheckStateRole), hasTicks ? QVariant(0) : QVariant());
    QCOMPARE(model->setData(model->index(0, 0), 2, Qt::CheckStateRole), hasTicks);
    QCOMPARE(model->index(0, 0).data(Qt::CheckStateRole), hasTicks ? QVariant(2) : QVariant());
}

/** White, taken and forgotten; a tool tip is not even taken. */
void TestModels::background()
{
    const Model model = kind.filled({"a"});
    const QList<Record> before = kind.cells(*model);
    QVERIFY(model->setData(model->index(0, 0), QColor(Qt::red), Qt::BackgroundRole));
    QVERIFY(!model->setData(model->index(0, 0), "x", Qt::ToolTipRole));
    QCOMPARE(kind.cells(*model), before);
    QCOMPARE(model->index(0, 0).data(Qt::BackgroundRole), QVariant(QColor(Qt::white)));
}

void TestModels::colors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("colour word") << "red" << QColor(255, 0, 0);
    QTest::newRow("lower case") << "#0a0b0c" << QColor(10, 11, 12);
    QTest::newRow("upper case") << "#0A0B0C" << QColor(10, 11, 12);
    QTest::newRow("no colour") << "chartreux" << QColor();
    QTest::newRow("too few digits") << "#12345" << QColor();
    QTest::newRow("no hash") << "ffffff" << QColor();
    QTest::newRow("empty") << "" << QColor();
}

void TestModels::colors()
{
    QFETCH(QString, text);
    const Model model = kind.filled({"a"});
    for (const int role : kind.keys.keys()) {
        if (!isColor(role))
            continue;
        QVERIFY(model->setData(model->index(0, 0), text, role));
        QCOMPARE(kind.cells(*model).at(0).value(kind.keys.value(role)), text);
        QCOMPARE(model->index(0, 0).data(role).userType(), int(QMetaType::QColor));
        QTEST(model->index(0, 0).data(role).value<QColor>(), "color");
    }
}

void TestModels::offTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column"); // behind the last one
    QTest::newRow("row behind the last") << 3 << -1;
    QTest::newRow("far row") << 60000 << -1;
    QTest::newRow("column behind the last") << 0 << 0;
    QTest::newRow("both") << 3 << 0;
    QTest::newRow("no index") << -1 << -13;
}

void TestModels::offTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const Model model = kind.filled({"a", "b", "c"});
    const QList<Record> before = kind.cells(*model);
    const QModelIndex lost = Models::lostIndex(*model, row, kind.columns + column);
    for (int role = 0; role < 264; ++role) {
        QVERIFY(!model->setData(lost, "x", role));
        if (row != 0 || kind.columns == 1)
            QCOMPARE(model->data(lost, role), QVariant());
    }
    QCOMPARE(kind.cells(*model), before);
}

void TestModels::header()
{
    const Model model = kind.filled({"a", "b"});
    QVariantList columns;
    for (int section = -1; section < 3; ++section)
        columns += model->headerData(section, Qt::Horizontal);
    QCOMPARE(columns, kind.header);
    for (const int section : {0, 1, 2, 12}) {
        QCOMPARE(model->headerData(section, Qt::Vertical), kind.rowHeader);
        for (const int role : {int(Qt::EditRole), int(Qt::ToolTipRole), int(Qt::TextAlignmentRole)}) {
            QCOMPARE(model->headerData(section, Qt::Horizontal, role), QVariant());
            QCOMPARE(model->headerData(section, Qt::Vertical, role), QVariant());
        }
    }
}

/** A move with the Shift key would make the view blank the dragged cell after the drop: drags copy. */
void TestModels::actions()
{
    const Model model = kind.make();
    QCOMPARE(int(model->supportedDropActions()), 3);
    QCOMPARE(model->supportedDragActions(), Qt::DropActions(Qt::CopyAction));
    QCOMPARE(model->mimeTypes(), (QStringList{"application/vnd.text.list", "application/x-color"}));
}

void TestModels::insertRows_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    const QStringList abc = {"a", "b", "c"};
    QTest::newRow("one into nothing") << QStringList() << 0 << 1;
    QTest::newRow("twelve into nothing") << QStringList() << 0 << 12;
    QTest::newRow("one at the front") << abc << 0 << 1;
    QTest::newRow("one in the middle lands in front") << abc << 1 << 1;
    QTest::newRow("two at the end land in front") << abc << 3 << 2;
    QTest::newRow("position 5 of 3 rows lands in front") << abc << 5 << 1;
    QTest::newRow("position -1 lands in front") << abc << -1 << 1;
    QTest::newRow("none") << abc << 1 << 0;
    QTest::newRow("fewer than none") << abc << 1 << -2;
}

void TestModels::insertRows()
{
    QFETCH(QStringList, before);
    QFETCH(int, position);
    QFETCH(int, count);
    const Model model = kind.filled(before);
    const Models::RowLog log(*model);
    QVERIFY(model->insertRows(position, count, model->index(0, 0)));
    const QString text = kind.fresh.value(kind.keys.value(Qt::EditRole));
    const QStringList after = QStringList(QVector<QString>(qMax(count, 0), text).toList()) + before;
    QCOMPARE(Models::firstColumn(*model), after);
    QCOMPARE(log.lines, Models::RowLog::of("insert", position, count, before, after));
}

void TestModels::removeRows_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("after");
    QTest::addColumn<QStringList>("swept"); // after, in the grid
    const QStringList abcd = {"a", "b", "c", "d"};
    const QStringList none;
    QTest::newRow("first") << abcd << 0 << 1 << QStringList{"b", "c", "d"} << QStringList{"b", "d"};
    QTest::newRow("middle two") << abcd << 1 << 2 << QStringList{"a", "d"} << QStringList{"a"};
    QTest::newRow("last") << abcd << 3 << 1 << QStringList{"a", "b", "c"} << QStringList{"a", "b", "c"};
    QTest::newRow("three from row 2 of 4")
        << abcd << 2 << 3 << QStringList{"a", "b"} << QStringList{"a", "b"};
    QTest::newRow("all") << abcd << 0 << 4 << none << none;
    QTest::newRow("more than all") << abcd << 0 << 60000 << none << none;
    QTest::newRow("behind the last") << abcd << 4 << 1 << abcd << abcd;
    QTest::newRow("before the first") << abcd << -1 << 2 << abcd << QStringList{"d"};
    QTest::newRow("none") << abcd << 1 << 0 << abcd << abcd;
    QTest::newRow("fewer than none") << abcd << 1 << -2 << abcd << abcd;
    QTest::newRow("from nothing") << none << 0 << 1 << none << none;
}

void TestModels::removeRows()
{
    QFETCH(QStringList, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    QFETCH(QStringList, swept);
    const Model model = kind.filled(before);
    const Models::RowLog log(*model);
    QVERIFY(model->removeRows(position, count, model->index(0, 0)));
    const QStringList left = kind.columns == 12 ? swept : after;
    QCOMPARE(Models::firstColumn(*model), left);
    QCOMPARE(log.lines, Models::RowLog::of("remove", position, count, before, left));
}

void TestModels::dragBytes()
{
    const Model model = kind.filled(QVector<QString>(11, "x").toList());
    const QModelIndex cell = model->index(10, kind.columns - 1);
    const QMap<int, QString> texts = {
        {Qt::EditRole, QString::fromUtf8("\xc3\x84\xf0\x9f\x92\xa1")},
        {PageRole, "3"},
        {DisplayNameRole, ""},
        {ButtonRole, "41"},
        {AvailableRole, "1"},
        {OffColorRole, "red"},
        {OnColorRole, "#0F0"},
        {BlinkRole, "1"},
        {Qt::DecorationRole, "#12ABcd"},
    };
    for (auto text = texts.cbegin(); text != texts.cend(); ++text)
        model->setData(cell, text.value(), text.key());

    const std::unique_ptr<QMimeData> data(model->mimeData({cell}));
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));
    const QByteArray place = Payload::textBytes({"10", QString::number(kind.columns - 1)});
    QCOMPARE(data->data("application/vnd.text.list").toHex(),
             (place + QByteArray::fromHex(kind.dragBytes)).toHex());
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("01ffff1212ababcdcd0000"));
}

void TestModels::dragOfFreshCell()
{
    const Model model = kind.make();
    model->insertRows(0, 1);
    const std::unique_ptr<QMimeData> data(model->mimeData({model->index(0, 0)}));
    QCOMPARE(data->data("application/vnd.text.list").toHex(), Payload::textBytes(kind.dragOfFresh).toHex());
}

void TestModels::dragOfRowThatIsGone()
{
    const Model model = kind.filled({"a", "b"});
    const QModelIndex stale = model->index(1, 0);
    model->removeRows(1, 1);
    const std::unique_ptr<QMimeData> data(model->mimeData({stale}));
    QCOMPARE(data->data("application/vnd.text.list").toHex(), Payload::textBytes(kind.dragOfGone).toHex());
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("00ffff0000000000000000"));
}

void TestModels::dropWithoutEffect_data()
{
    QTest::addColumn<QStringList>("formats");
    QTest::addColumn<int>("action");
    QTest::addColumn<bool>("result");
    const QStringList both = {"application/vnd.text.list", "application/x-color"};
    QTest::newRow("no texts") << QStringList{"application/x-color"} << int(Qt::CopyAction) << false;
    QTest::newRow("no colour") << QStringList{"application/vnd.text.list"} << int(Qt::CopyAction) << false;
    QTest::newRow("ignored") << both << int(Qt::IgnoreAction) << true;
    QTest::newRow("ignored, no part") << QStringList() << int(Qt::IgnoreAction) << true;
}

void TestModels::dropWithoutEffect()
{
    QFETCH(QStringList, formats);
    QFETCH(int, action);
    QMimeData data;
    for (const QString &format : formats)
        data.setData(format, Payload::fog()->data("application/vnd.text.list"));
    const Model model = kind.filled({"a", "b"});
    const QList<Record> before = kind.cells(*model);
    for (const QModelIndex &to : {model->index(1, 0), QModelIndex()})
        QTEST(model->dropMimeData(&data, Qt::DropAction(action), -1, -1, to), "result");
    QVERIFY(!model->dropMimeData(nullptr, Qt::CopyAction, -1, -1, model->index(1, 0)));
    QCOMPARE(kind.cells(*model), before);
}

void TestModels::neverTellsOfChanges()
{
    const Model model = kind.make();
    QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
    QSignalSpy headers(model.get(), &QAbstractItemModel::headerDataChanged);
    QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);

    model->insertRows(0, 12);
    for (int role = 0; role < 264; ++role)
        model->setData(model->index(1, 0), "2", role);
    const std::unique_ptr<QMimeData> data(model->mimeData({model->index(1, 0)}));
    for (const QModelIndex &to :
         {model->index(2, 0), model->index(2, 0), QModelIndex()}) // move, swap, beside
        QVERIFY(model->dropMimeData(data.get(), Qt::CopyAction, -1, -1, to));
    for (const QModelIndex &to : {model->index(0, 0), model->index(0, 0), QModelIndex()})
        QVERIFY(model->dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, to));
    model->removeRows(0, 12);
    QCOMPARE(changed.count() + headers.count() + reset.count(), 0);
}

/** The tables ignore the parent when they count rows, and lost indexes have flags. */
const QStringList MeantComplaints = {"hasChildren(topIndex)", "model->parent(childIndex)", "flags == 0"};

void TestModels::modelContract()
{
    const Models::Complaints complaints(MeantComplaints);
    const Model model = kind.make();
    const QAbstractItemModelTester tester(model.get(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    model->insertRows(0, 10);
    for (int row = 0; row < 10; ++row)
        model->setData(model->index(row, 0), QString::number(row));
    model->insertRows(0, 2);
    model->dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, model->index(3, 0));
    model->removeRows(11, 1);
    model->insertRows(0, 1);
    model->removeRows(0, 12);
    QCOMPARE(Models::Complaints::found(), QStringList());
}

void TestModels::frontStorageBreaksTheContract()
{
    const Models::Complaints complaints(MeantComplaints);
    const Model model = kind.filled({"a", "b", "c"});
    const QAbstractItemModelTester tester(model.get(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    // The view is told of row 1, and the new row is row 0: what stood before row 1 is not the same.
    model->insertRows(1, 1);
    QCOMPARE(Models::Complaints::found().size(), 1);
    QVERIFY2(Models::Complaints::found().at(0).contains("model->index(start - 1, 0, c.parent)"),
             qPrintable(Models::Complaints::found().at(0)));
}

QTEST_MAIN(TestModels)
#include "test_models.moc"
