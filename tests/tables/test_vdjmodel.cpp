#include "support/models.h"
#include "support/payload.h"
#include "tables/record.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

/** A pad's texts in the order name, page, display name, button, colour. */
using Pad = QStringList;

const Pad blank = {"1", "0", "1", "-1", "#000000"};
const Pad foggy = {"Fog", "5", "Fog low", "8", "#abcdef"};
const Pad strobe = {"My strobe", "3", "Strobe", "41", "#102030"};
const Pad par = {"My par", "2", "Par", "17", "#F0E0D0"};
const Pad parTravelled = {"My par", "2", "Par", "17", "#f0e0d0"};

Record record(const Pad &pad)
{
    return {{"name", pad.at(0)},
            {"pagenr", pad.at(1)},
            {"dspname", pad.at(2)},
            {"id", pad.at(3)},
            {"color", pad.at(4)}};
}

Pad padAt(const VDJModel &model, int row, int column)
{
    const Record pad = model.getlist().at(row).at(column);
    return {pad.value("name"), pad.value("pagenr"), pad.value("dspname"), pad.value("id"),
            pad.value("color")};
}

/** The 64 rows of the program, each pad at rest but for those that fill() puts in. */
class Pads final
{
public:
    Pads() { model.insertRows(0, 64); }

    void fill(int row, int column, const Pad &pad)
    {
        const QModelIndex index = model.index(row, column);
        model.setData(index, pad.at(0), Qt::EditRole);
        model.setData(index, pad.at(1), PageRole);
        model.setData(index, pad.at(2), DisplayNameRole);
        model.setData(index, pad.at(3), ButtonRole);
        model.setData(index, pad.at(4), Qt::DecorationRole);
    }

    /** What a drag of a pad carries. */
    std::unique_ptr<QMimeData> drag(int row, int column) const
    {
        return std::unique_ptr<QMimeData>(model.mimeData({model.index(row, column)}));
    }

    /** Row and column of each pad that is not at rest, with its texts. */
    QStringList filled() const
    {
        QStringList pads;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < 2; ++column) {
                const Pad pad = padAt(model, row, column);
                if (pad != blank)
                    pads.append(told(row, column, pad));
            }
        }
        return pads;
    }

    static QString told(int row, int column, const Pad &pad)
    {
        return QString("%1,%2: ").arg(row).arg(column) + pad.join('|');
    }

    VDJModel model;
};

/** Notes the signals of a table in their order, with the button numbers that a pad holds by then. */
class Listener final : public QObject
{
public:
    explicit Listener(const VDJModel &model, const QPersistentModelIndex &pad = {}) : m_pad(pad)
    {
        connect(&model, &VDJModel::ItemDroped, this,
                [this](int index, int to) { hear(QString("ItemDroped(%1,%2)").arg(index).arg(to)); });
        connect(&model, &VDJModel::ItemMoved, this,
                [this](int to) { hear(QString("ItemMoved(%1)").arg(to)); });
        connect(&model, &VDJModel::ItemToUncheck, this,
                [this](int to) { hear(QString("ItemToUncheck(%1)").arg(to)); });
    }

    QStringList heard;

private:
    void hear(const QString &signal)
    {
        heard.append(m_pad.isValid() ? signal + " while the pad holds " + m_pad.data(ButtonRole).toString()
                                     : signal);
    }

    QPersistentModelIndex m_pad;
};

/** The view as the program sets it up: it drags, takes drops and edits. */
class PadsView final
{
public:
    explicit PadsView(VDJModel &model)
    {
        view.setModel(&model);
        view.setDragEnabled(true);
        view.setAcceptDrops(true);
        view.setDropIndicatorShown(true);
        view.setDefaultDropAction(Qt::CopyAction);
        view.setSelectionMode(QAbstractItemView::SingleSelection);
        view.resize(300, 400);
        view.show();
    }

    QPoint middleOf(int row, int column)
    {
        return view.visualRect(view.model()->index(row, column)).center();
    }

    /** Drops data at a point of the viewport; whether the view took it. */
    bool drop(const QMimeData &data, const QPoint &point, Qt::DropAction action = Qt::CopyAction)
    {
        return Models::drop(view, data, point, action);
    }

    QTableView view;
};

/** Rows that differ by the names in their first column. */
QList<QList<Record>> named(const QStringList &names)
{
    QList<QList<Record>> rows;
    for (const QString &name : names)
        rows.append({record({name, "0", name, "-1", "#000000"}), record(blank)});
    return rows;
}

/** The table ignores the parent when it counts rows, and a lost index has the flags of a filled pad. */
const QStringList MeantComplaints = {"hasChildren(topIndex)", "model->parent(childIndex)", "flags == 0"};

} // namespace

/** The pads of a Pads Page. */
class TestVdjModel final : public QObject
{
    Q_OBJECT

private slots:
    void metaObjectOfTheClass();
    void emptyTable();
    void freshRow();
    void listGivenAtStart();
    void parentDoesNotMatter();

    void readRole_data();
    void readRole();
    void readColor_data();
    void readColor();
    void readOffTheTable_data();
    void readOffTheTable();
    void rowOfOneCell();

    void writeRole_data();
    void writeRole();
    void writeRefused_data();
    void writeRefused();
    void writeEmptyName_data();
    void writeEmptyName();
    void writeOffTheTable_data();
    void writeOffTheTable();

    void toolTip_data();
    void toolTip();
    void header_data();
    void header();
    void flags_data();
    void flags();
    void flagsOfNoPad();
    void actions();

    void insertRows_data();
    void insertRows();
    void removeRows_data();
    void removeRows();

    void mimeTypes();
    void mimeDataBytes();
    void mimeDataOfSeveral();
    void mimeDataOfNothing_data();
    void mimeDataOfNothing();
    void mimeDataOfRowThatIsGone();

    void dropLiveButton_data();
    void dropLiveButton();
    void dropLiveButtonThroughTheView_data();
    void dropLiveButtonThroughTheView();
    void replacedButtonIsToldLast();
    void dropTakesItsPlaceFromTheParent();
    void dropOfUnknownOrigin_data();
    void dropOfUnknownOrigin();
    void dropOfSeveral();
    void dropColors_data();
    void dropColors();

    void movePad_data();
    void movePad();
    void movePadThroughTheView();
    void swapPads_data();
    void swapPads();
    void swapPadsThroughTheView();
    void dropPadOnItself();
    void dropPadOnItselfThroughTheView();
    void movePadFromOutside_data();
    void movePadFromOutside();

    void dropBeside_data();
    void dropBeside();
    void dropBesideThroughTheView_data();
    void dropBesideThroughTheView();

    void dropRefused_data();
    void dropRefused();
    void dropRefusedThroughTheView();
    void dropIgnored();
    void dropDamaged_data();
    void dropDamaged();
    void dropCutAnywhere_data();
    void dropCutAnywhere();

    void editInPlace_data();
    void editInPlace();
    void emptyPadIsNotEdited();

    void neverTellsOfChanges();
    void modelContract();
    void modelContractFrontStorage();
};

void TestVdjModel::metaObjectOfTheClass()
{
    const QMetaObject &meta = VDJModel::staticMetaObject;
    QCOMPARE(meta.className(), "VDJModel");
    QCOMPARE(meta.superClass()->className(), "QAbstractTableModel");
    QVERIFY(meta.indexOfSignal("ItemDroped(int,int)") >= 0);
    QVERIFY(meta.indexOfSignal("ItemMoved(int)") >= 0);
    QVERIFY(meta.indexOfSignal("ItemToUncheck(int)") >= 0);
}

void TestVdjModel::emptyTable()
{
    VDJModel model;
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 2);
    QVERIFY(model.getlist().isEmpty());
    QCOMPARE(model.data({}, Qt::DisplayRole), QVariant());
    QCOMPARE(model.data(Models::lostIndex(model, 0, 0), Qt::BackgroundRole), QVariant());
}

void TestVdjModel::freshRow()
{
    VDJModel model;
    QVERIFY(model.insertRows(0, 1));
    const Record expected = {
        {"name", "1"}, {"dspname", "1"}, {"id", "-1"}, {"color", "#000000"}, {"pagenr", "0"}};
    QCOMPARE(model.getlist(), (QList<QList<Record>>{{expected, expected}}));
}

void TestVdjModel::listGivenAtStart()
{
    QObject parent;
    const QList<QList<Record>> rows = {{record(strobe), record(par)}, {record(blank), record(blank)}};
    auto *model = new VDJModel(rows, &parent);
    QCOMPARE(model->parent(), &parent);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->getlist(), rows);

    QList<QList<Record>> copy = model->getlist();
    copy[0][0]["name"] = "changed";
    QCOMPARE(model->getlist(), rows);
}

void TestVdjModel::parentDoesNotMatter()
{
    const VDJModel model(named({"a", "b", "c"}));
    QCOMPARE(model.rowCount(model.index(1, 1)), 3);
    QCOMPARE(model.columnCount(model.index(1, 1)), 2);
}

void TestVdjModel::readRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("display") << int(Qt::DisplayRole) << QVariant("My strobe");
    QTest::newRow("edit") << int(Qt::EditRole) << QVariant("My strobe");
    QTest::newRow("decoration") << int(Qt::DecorationRole) << QVariant(QColor(0x10, 0x20, 0x30));
    QTest::newRow("tool tip") << int(Qt::ToolTipRole)
                              << QVariant("PAD 3 \nLive Button: Strobe \nDisplay Text: My strobe\n\n"
                                          "Double-click to edit Text\nRight-click to Remove");
    QTest::newRow("background") << int(Qt::BackgroundRole) << QVariant(QColor(Qt::white));
    QTest::newRow("page") << int(PageRole) << QVariant("3");
    QTest::newRow("display name") << int(DisplayNameRole) << QVariant("Strobe");
    QTest::newRow("button") << int(ButtonRole) << QVariant("41");

    QTest::newRow("no foreground") << int(Qt::ForegroundRole) << QVariant();
    QTest::newRow("no tick") << int(Qt::CheckStateRole) << QVariant();
    QTest::newRow("no font") << int(Qt::FontRole) << QVariant();
    QTest::newRow("no alignment") << int(Qt::TextAlignmentRole) << QVariant();
    QTest::newRow("no role before the custom ones") << 255 << QVariant();
    QTest::newRow("no source") << int(SourceRole) << QVariant();
    QTest::newRow("no availability") << int(AvailableRole) << QVariant();
    QTest::newRow("no off colour") << int(OffColorRole) << QVariant();
    QTest::newRow("no on colour") << int(OnColorRole) << QVariant();
    QTest::newRow("no blink") << int(BlinkRole) << QVariant();
    QTest::newRow("no role behind the custom ones") << 264 << QVariant();
}

void TestVdjModel::readRole()
{
    QFETCH(int, role);
    QFETCH(QVariant, value);
    for (int column = 0; column < 2; ++column) {
        Pads pads;
        pads.fill(2, column, strobe);
        const QVariant actual = pads.model.data(pads.model.index(2, column), role);
        QCOMPARE(actual.userType(), value.userType());
        QCOMPARE(actual, value);
    }
}

void TestVdjModel::readColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("colour word") << "red" << QColor(255, 0, 0);
    QTest::newRow("upper case") << "#0A0B0C" << QColor(10, 11, 12);
    QTest::newRow("no colour") << "chartreux" << QColor();
    QTest::newRow("empty") << "" << QColor();
}

void TestVdjModel::readColor()
{
    QFETCH(QString, text);
    Pads pads;
    pads.model.setData(pads.model.index(0, 1), text, Qt::DecorationRole);
    const QVariant actual = pads.model.data(pads.model.index(0, 1), Qt::DecorationRole);
    QCOMPARE(actual.userType(), int(QMetaType::QColor));
    QTEST(actual.value<QColor>(), "color");
}

void TestVdjModel::readOffTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row behind the last") << 64 << 0;
    QTest::newRow("far row") << 60000 << 1;
    QTest::newRow("no index") << -1 << -1;
}

void TestVdjModel::readOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const Pads pads;
    QVERIFY(!pads.model.index(row, column).isValid());
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), int(Qt::ToolTipRole),
                           int(Qt::BackgroundRole), int(PageRole), int(ButtonRole)})
        QCOMPARE(pads.model.data(Models::lostIndex(pads.model, row, column), role), QVariant());
}

void TestVdjModel::rowOfOneCell()
{
    VDJModel model({{record(strobe)}});
    const QList<QList<Record>> before = model.getlist();
    QCOMPARE(model.data(model.index(0, 1), Qt::EditRole).toString(), QString());
    QCOMPARE(model.data(model.index(0, 1), ButtonRole).toString(), QString());
    model.setData(model.index(0, 1), "x", Qt::EditRole);
    QVERIFY(model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, model.index(0, 1)));
    QCOMPARE(model.getlist().at(0).at(0), record(strobe));
}

void TestVdjModel::writeRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("display") << int(Qt::DisplayRole) << "name" << QVariant("Fog") << "Fog";
    QTest::newRow("edit") << int(Qt::EditRole) << "name" << QVariant("Fog") << "Fog";
    QTest::newRow("edit to blanks") << int(Qt::EditRole) << "name" << QVariant("  ") << "  ";
    QTest::newRow("edit to a number") << int(Qt::EditRole) << "name" << QVariant(12) << "12";
    QTest::newRow("decoration") << int(Qt::DecorationRole) << "color" << QVariant("#AbCdEf") << "#AbCdEf";
    QTest::newRow("decoration from a colour")
        << int(Qt::DecorationRole) << "color" << QVariant(QColor(0xab, 0xcd, 0xef)) << "#abcdef";
    QTest::newRow("decoration from nonsense")
        << int(Qt::DecorationRole) << "color" << QVariant("mud") << "mud";
    QTest::newRow("empty decoration") << int(Qt::DecorationRole) << "color" << QVariant("") << "";
    QTest::newRow("page") << int(PageRole) << "pagenr" << QVariant("7") << "7";
    QTest::newRow("page from a number") << int(PageRole) << "pagenr" << QVariant(7) << "7";
    QTest::newRow("empty page") << int(PageRole) << "pagenr" << QVariant("") << "";
    QTest::newRow("display name") << int(DisplayNameRole) << "dspname" << QVariant("Fog") << "Fog";
    QTest::newRow("empty display name") << int(DisplayNameRole) << "dspname" << QVariant("") << "";
    QTest::newRow("button") << int(ButtonRole) << "id" << QVariant("5") << "5";
    QTest::newRow("button from a number") << int(ButtonRole) << "id" << QVariant(-1) << "-1";
}

void TestVdjModel::writeRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    for (int column = 0; column < 2; ++column) {
        Pads pads;
        pads.fill(5, column, strobe);
        QList<QList<Record>> expected = pads.model.getlist();
        expected[5][column][key] = text;
        QVERIFY(pads.model.setData(pads.model.index(5, column), value, role));
        QCOMPARE(pads.model.getlist(), expected);
    }
}

void TestVdjModel::writeRefused_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("result");
    QTest::newRow("background is taken and forgotten") << int(Qt::BackgroundRole) << true;
    QTest::newRow("tool tip") << int(Qt::ToolTipRole) << false;
    QTest::newRow("status tip") << int(Qt::StatusTipRole) << false;
    QTest::newRow("font") << int(Qt::FontRole) << false;
    QTest::newRow("alignment") << int(Qt::TextAlignmentRole) << false;
    QTest::newRow("size") << int(Qt::SizeHintRole) << false;
    QTest::newRow("before the custom ones") << 255 << false;
    QTest::newRow("foreground") << int(Qt::ForegroundRole) << false;
    QTest::newRow("tick") << int(Qt::CheckStateRole) << false;
    QTest::newRow("source") << int(SourceRole) << false;
    QTest::newRow("availability") << int(AvailableRole) << false;
    QTest::newRow("off colour") << int(OffColorRole) << false;
    QTest::newRow("on colour") << int(OnColorRole) << false;
    QTest::newRow("blink") << int(BlinkRole) << false;
    QTest::newRow("behind the custom ones") << 264 << false;
    QTest::newRow("negative") << -1 << false;
}

void TestVdjModel::writeRefused()
{
    QFETCH(int, role);
    Pads pads;
    pads.fill(5, 1, strobe);
    for (const QVariant &value : {QVariant("x"), QVariant(0), QVariant(QColor(Qt::red))})
        QTEST(pads.model.setData(pads.model.index(5, 1), value, role), "result");
    QCOMPARE(pads.filled(), QStringList{Pads::told(5, 1, strobe)});
}

void TestVdjModel::writeEmptyName_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::newRow("first pad") << 0 << 0 << "PAD 1";
    QTest::newRow("second column counts as the first") << 0 << 1 << "PAD 1";
    QTest::newRow("last of the bank") << 7 << 0 << "PAD 8";
    QTest::newRow("the count runs on in the second bank") << 9 << 0 << "PAD 10";
    QTest::newRow("the count runs on, second column") << 9 << 1 << "PAD 10";
    QTest::newRow("last pad") << 63 << 1 << "PAD 64";
}

void TestVdjModel::writeEmptyName()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, name);
    for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole)}) {
        for (const QVariant &value : {QVariant(""), QVariant(QString()), QVariant()}) {
            Pads pads;
            pads.fill(row, column, strobe);
            QVERIFY(pads.model.setData(pads.model.index(row, column), value, role));
            const Pad expected = {name, "3", "Strobe", "41", "#102030"};
            QCOMPARE(pads.filled(), QStringList{Pads::told(row, column, expected)});
        }
    }
}

void TestVdjModel::writeOffTheTable_data()
{
    readOffTheTable_data();
    QTest::newRow("third column") << 0 << 2;
    QTest::newRow("both") << 64 << 2;
}

void TestVdjModel::writeOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    Pads pads;
    const QModelIndex lost = Models::lostIndex(pads.model, row, column);
    for (const int role :
         {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::DecorationRole), int(PageRole), int(ButtonRole)})
        QVERIFY(!pads.model.setData(lost, "x", role));
    QCOMPARE(pads.filled(), QStringList());
    QCOMPARE(pads.model.rowCount(), 64);
}

void TestVdjModel::toolTip_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<Pad>("pad");
    QTest::addColumn<QVariant>("text");
    QTest::newRow("row 0") << 0 << 0 << strobe
                           << QVariant("PAD 1 \nLive Button: Strobe \nDisplay Text: My strobe\n\n"
                                       "Double-click to edit Text\nRight-click to Remove");
    QTest::newRow("second column counts as the first")
        << 0 << 1 << strobe
        << QVariant("PAD 1 \nLive Button: Strobe \nDisplay Text: My strobe\n\n"
                    "Double-click to edit Text\nRight-click to Remove");
    QTest::newRow("last row") << 63 << 1 << par
                              << QVariant("PAD 64 \nLive Button: Par \nDisplay Text: My par\n\n"
                                          "Double-click to edit Text\nRight-click to Remove");
    QTest::newRow("texts with percent signs and markup stay as they are")
        << 9 << 0 << Pad{"%1 <b>", "1", "%2 & %0", "0", "#000000"}
        << QVariant("PAD 10 \nLive Button: %2 & %0 \nDisplay Text: %1 <b>\n\n"
                    "Double-click to edit Text\nRight-click to Remove");
    QTest::newRow("empty pad") << 0 << 0 << blank << QVariant();
    QTest::newRow("the button alone decides: page without button")
        << 0 << 0 << Pad{"x", "3", "x", "-1", "#ffffff"} << QVariant();
    QTest::newRow("the button alone decides: button without page")
        << 0 << 0 << Pad{"x", "0", "y", "5", "#ffffff"}
        << QVariant("PAD 1 \nLive Button: y \nDisplay Text: x\n\n"
                    "Double-click to edit Text\nRight-click to Remove");
    QTest::newRow("blanked pad") << 2 << 0 << Pad{"PAD 3", "", "", "", ""}
                                 << QVariant("PAD 3 \nLive Button:  \nDisplay Text: PAD 3\n\n"
                                             "Double-click to edit Text\nRight-click to Remove");
}

void TestVdjModel::toolTip()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(Pad, pad);
    QFETCH(QVariant, text);
    Pads pads;
    pads.fill(row, column, pad);
    const QVariant actual = pads.model.data(pads.model.index(row, column), Qt::ToolTipRole);
    QCOMPARE(actual.isValid(), text.isValid());
    QCOMPARE(actual.toString(), text.toString());
}

void TestVdjModel::header_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    const int text = Qt::DisplayRole;
    QTest::newRow("first column") << 0 << Qt::Horizontal << text << QVariant("Color");
    QTest::newRow("second column") << 1 << Qt::Horizontal << text << QVariant("Name");
    QTest::newRow("third column") << 2 << Qt::Horizontal << text << QVariant();
    QTest::newRow("column before the first") << -1 << Qt::Horizontal << text << QVariant();
    QTest::newRow("first row") << 0 << Qt::Vertical << text << QVariant();
    QTest::newRow("second row") << 1 << Qt::Vertical << text << QVariant();
    QTest::newRow("edit role") << 0 << Qt::Horizontal << int(Qt::EditRole) << QVariant();
    QTest::newRow("tool tip") << 1 << Qt::Horizontal << int(Qt::ToolTipRole) << QVariant();
}

void TestVdjModel::header()
{
    QFETCH(int, section);
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, role);
    QFETCH(QVariant, value);
    const Pads pads;
    const QVariant actual = pads.model.headerData(section, orientation, role);
    QCOMPARE(actual.isValid(), value.isValid());
    QCOMPARE(actual, value);
}

void TestVdjModel::flags_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("number");
    // 1 selectable, 2 editable, 4 draggable, 8 takes drops, 32 enabled, 128 without children
    const int empty = 1 + 8 + 32 + 128;
    const int filled = empty + 2 + 4;
    QTest::newRow("empty") << "0"
                           << "-1" << empty;
    QTest::newRow("filled") << "3"
                            << "41" << filled;
    QTest::newRow("the page alone decides: button without page") << "0"
                                                                 << "41" << empty;
    QTest::newRow("the page alone decides: page without button") << "1"
                                                                 << "-1" << filled;
    QTest::newRow("blanked") << ""
                             << "" << filled;
    QTest::newRow("page 00 is not 0") << "00"
                                      << "-1" << filled;
    QTest::newRow("page -1 is not 0") << "-1"
                                      << "-1" << filled;
}

void TestVdjModel::flags()
{
    QFETCH(QString, page);
    QFETCH(QString, button);
    for (int column = 0; column < 2; ++column) {
        Pads pads;
        pads.fill(3, column, {"x", page, "y", button, "#ffffff"});
        QTEST(int(pads.model.flags(pads.model.index(3, column))), "number");
    }
}

void TestVdjModel::flagsOfNoPad()
{
    QCOMPARE(int(VDJModel().flags({})), 15);
    QCOMPARE(int(Pads().model.flags({})), 15);
}

void TestVdjModel::actions()
{
    const VDJModel model;
    QCOMPARE(int(model.supportedDropActions()), 3);
    // A move with the Shift key would make the view blank the dragged pad after the drop.
    QCOMPARE(model.supportedDragActions(), Qt::DropActions(Qt::CopyAction));
}

void TestVdjModel::insertRows_data()
{
    Models::rowsToInsert();
}

void TestVdjModel::insertRows()
{
    QFETCH(QStringList, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    VDJModel model(named(before));
    const Models::RowLog log(model);
    QVERIFY(model.insertRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("insert", position, count, before, after));
}

void TestVdjModel::removeRows_data()
{
    Models::rowsToRemove();
}

void TestVdjModel::removeRows()
{
    QFETCH(QStringList, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    VDJModel model(named(before));
    const Models::RowLog log(model);
    QVERIFY(model.removeRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("remove", position, count, before, after));
}

void TestVdjModel::mimeTypes()
{
    QCOMPARE(VDJModel().mimeTypes(), (QStringList{"application/vnd.text.list", "application/x-color"}));
}

void TestVdjModel::mimeDataBytes()
{
    Pads pads;
    pads.fill(10, 1, {QString::fromUtf8("\xc3\x84"), "3", "", "41", "#12ABcd"});
    const auto data = pads.drag(10, 1);
    QVERIFY(data);
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));

    const QByteArray texts = QByteArray::fromHex("00000004 0031 0030"   // row 10
                                                 "00000002 0031"        // column 1
                                                 "00000002 00c4"        // name
                                                 "00000002 0033"        // page 3
                                                 "00000000"             // display name, empty
                                                 "00000002 0030"        // from the pads
                                                 "00000004 0034 0031"); // button 41
    QCOMPARE(data->data("application/vnd.text.list").toHex(), texts.toHex());
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("01ffff1212ababcdcd0000"));
}

void TestVdjModel::mimeDataOfSeveral()
{
    Pads pads;
    pads.fill(63, 1, strobe);
    const std::unique_ptr<QMimeData> data(
        pads.model.mimeData({pads.model.index(63, 1), {}, pads.model.index(0, 0)}));
    QCOMPARE(data->data("application/vnd.text.list"),
             Payload::textBytes({"63", "1", "My strobe", "3", "Strobe", "0", "41"})
                 + Payload::textBytes({"0", "0", "1", "0", "1", "0", "-1"}));
    QCOMPARE(data->data("application/x-color"),
             Payload::colorBytes(0x10, 0x20, 0x30) + Payload::colorBytes(0, 0, 0));
}

void TestVdjModel::mimeDataOfNothing_data()
{
    QTest::addColumn<QModelIndexList>("indexes");
    QTest::newRow("empty list") << QModelIndexList();
    QTest::newRow("invalid indexes") << QModelIndexList{{}, {}};
}

void TestVdjModel::mimeDataOfNothing()
{
    QFETCH(QModelIndexList, indexes);
    const std::unique_ptr<QMimeData> data(Pads().model.mimeData(indexes));
    QVERIFY(data);
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));
    QCOMPARE(data->data("application/vnd.text.list"), QByteArray());
    QCOMPARE(data->data("application/x-color"), QByteArray());
}

void TestVdjModel::mimeDataOfRowThatIsGone()
{
    Pads pads;
    const QModelIndex stale = pads.model.index(63, 0);
    pads.model.removeRows(63, 1);
    const std::unique_ptr<QMimeData> data(pads.model.mimeData({stale}));
    QCOMPARE(data->data("application/vnd.text.list"), Payload::textBytes({"63", "0", {}, {}, {}, "0", {}}));
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("00ffff0000000000000000"));
}

void TestVdjModel::dropLiveButton_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<Pad>("before");
    QTest::addColumn<QStringList>("heard");
    QTest::newRow("on an empty pad") << 0 << 0 << blank << QStringList{"ItemDroped(4,0)"};
    QTest::newRow("on an empty pad of the second column")
        << 9 << 1 << blank << QStringList{"ItemDroped(4,9)"};
    QTest::newRow("on the last pad") << 63 << 1 << blank << QStringList{"ItemDroped(4,63)"};
    QTest::newRow("on a filled pad") << 2 << 0 << strobe
                                     << QStringList{"ItemDroped(4,2)", "ItemToUncheck(41)"};
    QTest::newRow("on a filled pad of the second column")
        << 2 << 1 << par << QStringList{"ItemDroped(4,2)", "ItemToUncheck(17)"};
    QTest::newRow("on a pad that holds the same button")
        << 2 << 0 << foggy << QStringList{"ItemDroped(4,2)", "ItemToUncheck(8)"};
    QTest::newRow("on a pad with button 0")
        << 2 << 0 << Pad{"x", "1", "x", "0", "#000000"} << QStringList{"ItemDroped(4,2)", "ItemToUncheck(0)"};
    QTest::newRow("the page tells a filled pad, not the button")
        << 2 << 0 << Pad{"x", "0", "x", "41", "#000000"} << QStringList{"ItemDroped(4,2)"};
    QTest::newRow("a page below 1 is an empty pad")
        << 2 << 0 << Pad{"x", "-2", "x", "41", "#000000"} << QStringList{"ItemDroped(4,2)"};
    QTest::newRow("a page that is no number is an empty pad")
        << 2 << 0 << Pad{"x", "two", "x", "41", "#000000"} << QStringList{"ItemDroped(4,2)"};
    QTest::newRow("a button that is no number counts as 0")
        << 2 << 0 << Pad{"x", "2", "x", "first", "#000000"}
        << QStringList{"ItemDroped(4,2)", "ItemToUncheck(0)"};
    QTest::newRow("on a blanked pad")
        << 2 << 0 << Pad{"PAD 3", "", "", "", ""} << QStringList{"ItemDroped(4,2)"};
}

void TestVdjModel::dropLiveButton()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(Pad, before);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
        Pads pads;
        pads.fill(row, column, before);
        pads.fill(4, 0, par); // where the Live Button's row and column would point in this table
        const Listener listener(pads.model);
        QVERIFY(pads.model.dropMimeData(Payload::fog().get(), action, -1, -1, pads.model.index(row, column)));

        QCOMPARE(padAt(pads.model, row, column), foggy);
        QCOMPARE(padAt(pads.model, 4, 0), par);
        QCOMPARE(pads.filled().size(), 2);
        QTEST(listener.heard, "heard");
    }
}

void TestVdjModel::dropLiveButtonThroughTheView_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<Pad>("before");
    QTest::addColumn<int>("action");
    QTest::addColumn<QStringList>("heard");
    QTest::newRow("on an empty pad") << 0 << blank << int(Qt::CopyAction) << QStringList{"ItemDroped(4,2)"};
    QTest::newRow("on an empty pad of the second column")
        << 1 << blank << int(Qt::CopyAction) << QStringList{"ItemDroped(4,2)"};
    QTest::newRow("on a filled pad") << 0 << strobe << int(Qt::CopyAction)
                                     << QStringList{"ItemDroped(4,2)", "ItemToUncheck(41)"};
    QTest::newRow("proposed as a move")
        << 0 << strobe << int(Qt::MoveAction) << QStringList{"ItemDroped(4,2)", "ItemToUncheck(41)"};
}

void TestVdjModel::dropLiveButtonThroughTheView()
{
    QFETCH(int, column);
    QFETCH(Pad, before);
    QFETCH(int, action);
    Pads pads;
    pads.fill(2, column, before);
    PadsView view(pads.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(pads.model);

    QVERIFY(view.drop(*Payload::fog(), view.middleOf(2, column), Qt::DropAction(action)));

    QCOMPARE(pads.filled(), QStringList{Pads::told(2, column, foggy)});
    QTEST(listener.heard, "heard");
}

void TestVdjModel::replacedButtonIsToldLast()
{
    Pads pads;
    pads.fill(2, 1, strobe);
    const Listener listener(pads.model, pads.model.index(2, 1));
    QVERIFY(pads.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, pads.model.index(2, 1)));
    QCOMPARE(listener.heard, (QStringList{"ItemDroped(4,2) while the pad holds 8",
                                          "ItemToUncheck(41) while the pad holds 8"}));
}

void TestVdjModel::dropTakesItsPlaceFromTheParent()
{
    Pads pads;
    const Listener listener(pads.model);
    QVERIFY(pads.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 20, 0, pads.model.index(5, 1)));
    // Row and column of the parent count, whosever index it is; what it holds does not.
    QStandardItemModel other(64, 2);
    other.setData(other.index(6, 1), "3", PageRole);
    other.setData(other.index(6, 1), "77", ButtonRole);
    QVERIFY(pads.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 20, 0, other.index(6, 1)));
    QCOMPARE(pads.filled(), (QStringList{Pads::told(5, 1, foggy), Pads::told(6, 1, foggy)}));
    QCOMPARE(listener.heard, (QStringList{"ItemDroped(4,5)", "ItemDroped(4,6)"}));
}

void TestVdjModel::dropOfUnknownOrigin_data()
{
    QTest::addColumn<QString>("origin");
    QTest::newRow("2") << "2";
    QTest::newRow("01") << "01";
    QTest::newRow("00") << "00";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void TestVdjModel::dropOfUnknownOrigin()
{
    QFETCH(QString, origin);
    Pads pads;
    pads.fill(2, 0, strobe);
    pads.fill(4, 0, par);
    const Listener listener(pads.model);
    QVERIFY(
        pads.model.dropMimeData(Payload::fog(origin).get(), Qt::CopyAction, -1, -1, pads.model.index(2, 0)));
    // Not from this table, so the drop is told; not from the Live Buttons, so nothing is unchecked.
    QCOMPARE(listener.heard, QStringList{"ItemDroped(4,2)"});
    QCOMPARE(pads.filled(), (QStringList{Pads::told(2, 0, foggy), Pads::told(4, 0, par)}));
}

void TestVdjModel::dropOfSeveral()
{
    Pads pads;
    pads.fill(2, 0, strobe);
    pads.fill(3, 0, par);
    const Listener listener(pads.model);
    const std::unique_ptr<QMimeData> data(
        pads.model.mimeData({pads.model.index(3, 0), pads.model.index(2, 0)}));
    QVERIFY(pads.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, pads.model.index(20, 1)));
    QCOMPARE(pads.filled(), (QStringList{Pads::told(2, 0, strobe),
                                         Pads::told(3, 0, {"PAD 4", "0", "PAD 4", "-1", "#000000"}),
                                         Pads::told(20, 1, parTravelled)}));
    QCOMPARE(listener.heard, QStringList{"ItemMoved(20)"});
}

void TestVdjModel::dropColors_data()
{
    QTest::addColumn<QByteArray>("colors");
    QTest::addColumn<QString>("color");
    QTest::newRow("one") << Payload::colorBytes(0xAB, 0xCD, 0xEF) << "#abcdef";
    QTest::newRow("two") << Payload::colorBytes(1, 2, 3) + Payload::colorBytes(4, 5, 6) << "#010203";
    QTest::newRow("see-through") << QByteArray::fromHex("018080ffff000000000000") << "#ff0000";
    QTest::newRow("invalid") << QByteArray::fromHex("00ffff0000000000000000") << "#000000";
    QTest::newRow("none") << QByteArray() << "";
    QTest::newRow("cut off") << Payload::colorBytes(1, 2, 3).left(10) << "";
}

void TestVdjModel::dropColors()
{
    QFETCH(QByteArray, colors);
    Pads pads;
    const auto data = Payload::of(Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8"}), colors);
    QVERIFY(pads.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, pads.model.index(2, 0)));
    Pad pad = padAt(pads.model, 2, 0);
    QTEST(pad.takeLast(), "color");
    QCOMPARE(pad, foggy.mid(0, 4));
}

void TestVdjModel::movePad_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("toRow");
    QTest::addColumn<int>("toColumn");
    QTest::addColumn<QString>("labelLeftBehind");
    QTest::newRow("first pad") << 0 << 0 << 1 << 0 << "PAD 1";
    QTest::newRow("last row of the first bank") << 7 << 0 << 0 << 0 << "PAD 8";
    QTest::newRow("first row of the second bank") << 8 << 0 << 0 << 1 << "PAD 1";
    QTest::newRow("second column counts as the first") << 9 << 1 << 3 << 0 << "PAD 2";
    QTest::newRow("last pad") << 63 << 1 << 62 << 1 << "PAD 8";
    QTest::newRow("to the other column of the row") << 5 << 0 << 5 << 1 << "PAD 6";
}

void TestVdjModel::movePad()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, toRow);
    QFETCH(int, toColumn);
    QFETCH(QString, labelLeftBehind);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        Pads pads;
        pads.fill(row, column, par);
        const Listener listener(pads.model);
        QVERIFY(pads.model.dropMimeData(pads.drag(row, column).get(), action, -1, -1,
                                        pads.model.index(toRow, toColumn)));
        QCOMPARE(padAt(pads.model, toRow, toColumn), parTravelled);
        QCOMPARE(padAt(pads.model, row, column),
                 (Pad{labelLeftBehind, "0", labelLeftBehind, "-1", "#000000"}));
        QCOMPARE(pads.filled().size(), 2);
        QCOMPARE(listener.heard, QStringList{QString("ItemMoved(%1)").arg(toRow)});
    }
}

void TestVdjModel::movePadThroughTheView()
{
    Pads pads;
    pads.fill(3, 1, strobe);
    PadsView view(pads.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(pads.model);
    QVERIFY(view.drop(*pads.drag(3, 1), view.middleOf(6, 0)));
    QCOMPARE(pads.filled(), (QStringList{Pads::told(3, 1, {"PAD 4", "0", "PAD 4", "-1", "#000000"}),
                                         Pads::told(6, 0, strobe)}));
    QCOMPARE(listener.heard, QStringList{"ItemMoved(6)"});
}

void TestVdjModel::swapPads_data()
{
    QTest::addColumn<Pad>("dragged");
    QTest::addColumn<Pad>("target");
    QTest::addColumn<Pad>("targetAfter");
    QTest::addColumn<Pad>("sourceAfter");
    QTest::newRow("two filled pads") << strobe << par << strobe << parTravelled;
    QTest::newRow("the other way round") << par << strobe << parTravelled << strobe;
    QTest::newRow("the same button twice") << strobe << strobe << strobe << strobe;
    QTest::newRow("colour words become digits")
        << Pad{"a", "1", "a", "1", "red"} << Pad{"b", "1", "b", "2", "Blue"}
        << Pad{"a", "1", "a", "1", "#ff0000"} << Pad{"b", "1", "b", "2", "#0000ff"};
    QTest::newRow("unreadable colours become black")
        << Pad{"a", "1", "a", "1", "mud"} << Pad{"b", "1", "b", "2", ""} << Pad{"a", "1", "a", "1", "#000000"}
        << Pad{"b", "1", "b", "2", "#000000"};
    QTest::newRow("a blanked target counts as filled")
        << strobe << Pad{"PAD 21", "", "", "", ""} << strobe << Pad{"PAD 21", "", "", "", "#000000"};
    QTest::newRow("the button alone tells an empty target")
        << strobe << Pad{"b", "0", "b", "2", "#010203"} << strobe << Pad{"b", "0", "b", "2", "#010203"};
}

void TestVdjModel::swapPads()
{
    QFETCH(Pad, dragged);
    QFETCH(Pad, target);
    QFETCH(Pad, targetAfter);
    QFETCH(Pad, sourceAfter);
    Pads pads;
    pads.fill(9, 1, dragged);
    pads.fill(20, 0, target);
    const Listener listener(pads.model);
    QVERIFY(pads.model.dropMimeData(pads.drag(9, 1).get(), Qt::CopyAction, -1, -1, pads.model.index(20, 0)));
    QCOMPARE(pads.filled(), (QStringList{Pads::told(9, 1, sourceAfter), Pads::told(20, 0, targetAfter)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::swapPadsThroughTheView()
{
    Pads pads;
    pads.fill(1, 0, strobe);
    pads.fill(4, 1, par);
    PadsView view(pads.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(pads.model);
    QVERIFY(view.drop(*pads.drag(1, 0), view.middleOf(4, 1)));
    QCOMPARE(pads.filled(), (QStringList{Pads::told(1, 0, parTravelled), Pads::told(4, 1, strobe)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::dropPadOnItself()
{
    Pads pads;
    pads.fill(9, 1, strobe);
    const Listener listener(pads.model);
    QVERIFY(pads.model.dropMimeData(pads.drag(9, 1).get(), Qt::CopyAction, -1, -1, pads.model.index(9, 1)));
    QCOMPARE(pads.filled(), QStringList{Pads::told(9, 1, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::dropPadOnItselfThroughTheView()
{
    Pads pads;
    pads.fill(3, 1, strobe);
    PadsView view(pads.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(pads.model);
    QVERIFY(view.drop(*pads.drag(3, 1), view.middleOf(3, 1)));
    QCOMPARE(pads.filled(), QStringList{Pads::told(3, 1, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::movePadFromOutside_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row behind the last") << 64 << 0;
    QTest::newRow("row before the first") << -1 << 0;
    QTest::newRow("third column") << 0 << 2;
    QTest::newRow("column before the first") << 0 << -1;
}

void TestVdjModel::movePadFromOutside()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const QStringList texts = {
        QString::number(row), QString::number(column), "Fog", "5", "Fog low", "0", "8"};
    const auto data = Payload::of(Payload::textBytes(texts), Payload::colorBytes(0xab, 0xcd, 0xef));
    Pads pads;
    pads.fill(7, 0, strobe);
    const Listener listener(pads.model);
    QVERIFY(pads.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, pads.model.index(6, 0)));
    QVERIFY(pads.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, pads.model.index(7, 0)));
    QCOMPARE(pads.filled(), (QStringList{Pads::told(6, 0, foggy), Pads::told(7, 0, foggy)}));
    QCOMPARE(listener.heard, QStringList{"ItemMoved(6)"});
}

void TestVdjModel::dropBeside_data()
{
    QTest::addColumn<int>("row"); // of the parent
    QTest::newRow("no parent") << -1;
    QTest::newRow("a pad that is gone") << 70;
}

void TestVdjModel::dropBeside()
{
    QFETCH(int, row);
    Pads pads;
    pads.fill(9, 1, strobe);
    const Listener listener(pads.model);
    const QModelIndex lost = row < 0 ? QModelIndex() : Models::lostIndex(pads.model, row, 0);

    QVERIFY(pads.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 3, 0, lost));
    QCOMPARE(pads.filled(), QStringList{Pads::told(9, 1, strobe)});
    QCOMPARE(listener.heard, QStringList{QString("ItemDroped(4,%1)").arg(row)});

    QVERIFY(pads.model.dropMimeData(pads.drag(9, 1).get(), Qt::CopyAction, 3, 0, lost));
    QCOMPARE(pads.filled(), QStringList{Pads::told(9, 1, {"PAD 10", "", "", "", ""})});
    QCOMPARE(listener.heard.size(), 1);
}

void TestVdjModel::dropBesideThroughTheView_data()
{
    QTest::addColumn<bool>("onALine");
    QTest::newRow("on the line between two pads") << true;
    QTest::newRow("below the last row") << false;
}

void TestVdjModel::dropBesideThroughTheView()
{
    QFETCH(bool, onALine);
    VDJModel model(named({"a", "b", "c"}));
    model.setData(model.index(2, 0), "41", ButtonRole);
    model.setData(model.index(2, 0), "3", PageRole);
    PadsView view(model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(model);
    const QPoint point = onALine ? view.view.visualRect(model.index(0, 0)).bottomLeft() + QPoint(20, 1)
                                 : view.view.visualRect(model.index(2, 0)).bottomLeft() + QPoint(20, 100);
    QCOMPARE(view.view.indexAt(point).isValid(), onALine);

    QVERIFY(view.drop(*Payload::fog(), point));
    QCOMPARE(Models::firstColumn(model), (QStringList{"a", "b", "c"}));
    QCOMPARE(listener.heard, QStringList{"ItemDroped(4,-1)"});

    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 0)}));
    QVERIFY(view.drop(*data, point));
    QCOMPARE(Models::firstColumn(model), (QStringList{"a", "b", "PAD 3"}));
    QCOMPARE(padAt(model, 2, 0), (Pad{"PAD 3", "", "", "", ""}));
    QCOMPARE(listener.heard.size(), 1);
}

void TestVdjModel::dropRefused_data()
{
    QTest::addColumn<QStringList>("formats");
    QTest::newRow("no part") << QStringList();
    QTest::newRow("no texts") << QStringList{"application/x-color"};
    QTest::newRow("no colour") << QStringList{"application/vnd.text.list"};
    QTest::newRow("other parts") << QStringList{"text/plain", "application/x-qabstractitemmodeldatalist"};
}

void TestVdjModel::dropRefused()
{
    QFETCH(QStringList, formats);
    Pads pads;
    pads.fill(2, 0, strobe);
    const Listener listener(pads.model);
    QMimeData data;
    for (const QString &format : formats)
        data.setData(format, Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8"}));
    for (const QModelIndex &to : {pads.model.index(2, 0), pads.model.index(0, 0), QModelIndex()})
        QVERIFY(!pads.model.dropMimeData(&data, Qt::CopyAction, -1, -1, to));
    QVERIFY(!pads.model.dropMimeData(nullptr, Qt::CopyAction, -1, -1, pads.model.index(2, 0)));
    QCOMPARE(pads.filled(), QStringList{Pads::told(2, 0, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::dropRefusedThroughTheView()
{
    Pads pads;
    PadsView view(pads.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(pads.model);
    for (const char *format : {"application/vnd.text.list", "application/x-color", "text/plain"}) {
        QMimeData data;
        data.setData(format, Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8"}));
        QVERIFY2(!view.drop(data, view.middleOf(2, 0)), format);
    }
    QCOMPARE(pads.filled(), QStringList());
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::dropIgnored()
{
    Pads pads;
    pads.fill(2, 0, strobe);
    const Listener listener(pads.model);
    const QMimeData nothing;
    QVERIFY(pads.model.dropMimeData(Payload::fog().get(), Qt::IgnoreAction, -1, -1, pads.model.index(2, 0)));
    QVERIFY(pads.model.dropMimeData(pads.drag(2, 0).get(), Qt::IgnoreAction, -1, -1, pads.model.index(3, 0)));
    QVERIFY(pads.model.dropMimeData(&nothing, Qt::IgnoreAction, -1, -1, pads.model.index(2, 0)));
    QCOMPARE(pads.filled(), QStringList{Pads::told(2, 0, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::dropDamaged_data()
{
    QTest::addColumn<QByteArray>("texts");
    QTest::addColumn<bool>("result");
    QTest::addColumn<Pad>("pad");
    QTest::addColumn<QStringList>("heard");
    const QStringList told = {"ItemDroped(4,2)"};
    const QStringList toldAndUnchecked = {"ItemDroped(4,2)", "ItemToUncheck(41)"};
    QTest::newRow("no text") << QByteArray() << false << strobe << QStringList();
    QTest::newRow("half a length") << QByteArray::fromHex("0000") << false << strobe << QStringList();
    QTest::newRow("odd length") << QByteArray::fromHex("00000003003400") << false << strobe << QStringList();
    QTest::newRow("length far past the end")
        << QByteArray::fromHex("fffffffe00310032") << false << strobe << QStringList();
    QTest::newRow("row alone") << Payload::textBytes({"4"}) << true << Pad{"PAD 3", "", "", "", "#abcdef"}
                               << told;
    QTest::newRow("no origin") << Payload::textBytes({"4", "0", "Fog", "5", "Fog low"}) << true
                               << Pad{"Fog", "5", "Fog low", "", "#abcdef"} << told;
    QTest::newRow("no button") << Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1"}) << true
                               << Pad{"Fog", "5", "Fog low", "", "#abcdef"} << toldAndUnchecked;
    QTest::newRow("half a button")
        << Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8"}).chopped(1) << true
        << Pad{"Fog", "5", "Fog low", "", "#abcdef"} << toldAndUnchecked;
    QTest::newRow("seven texts are enough") << Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8"})
                                            << true << foggy << toldAndUnchecked;
    QTest::newRow("null texts") << Payload::textBytes({"4", "0", {}, {}, {}, "1", {}}) << true
                                << Pad{"PAD 3", "", "", "", "#abcdef"} << toldAndUnchecked;
}

void TestVdjModel::dropDamaged()
{
    QFETCH(QByteArray, texts);
    QFETCH(Pad, pad);
    Pads pads;
    pads.fill(2, 0, strobe);
    pads.fill(4, 0, par);
    const Listener listener(pads.model);
    QTEST(pads.model.dropMimeData(Payload::of(texts, Payload::colorBytes(0xab, 0xcd, 0xef)).get(),
                                  Qt::CopyAction, -1, -1, pads.model.index(2, 0)),
          "result");
    QCOMPARE(pads.filled(), (QStringList{Pads::told(2, 0, pad), Pads::told(4, 0, par)}));
    QTEST(listener.heard, "heard");
}

void TestVdjModel::dropCutAnywhere_data()
{
    QTest::addColumn<QString>("origin");
    QTest::newRow("Live Button") << "1";
    QTest::newRow("pad") << "0";
}

void TestVdjModel::dropCutAnywhere()
{
    QFETCH(QString, origin);
    const QByteArray texts = Payload::fog(origin)->data("application/vnd.text.list");
    const QByteArray colors = Payload::fog(origin)->data("application/x-color");
    for (int size = 0; size <= texts.size(); ++size) {
        Pads pads;
        pads.fill(20, 1, strobe);
        const auto data = Payload::of(texts.left(size), colors.left(size % 12));
        const bool holdsFirstText = size >= 6;
        for (const QModelIndex &to : {pads.model.index(2, 0), pads.model.index(4, 0), QModelIndex()})
            QCOMPARE(pads.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, to), holdsFirstText);
        QCOMPARE(pads.model.rowCount(), 64);
        QCOMPARE(padAt(pads.model, 20, 1), strobe);
        QVERIFY(holdsFirstText || pads.filled().size() == 1);
    }
}

void TestVdjModel::editInPlace_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::newRow("a new text") << "Blackout" << 2 << 0 << "Blackout";
    QTest::newRow("an empty text") << "" << 2 << 0 << "PAD 3";
    QTest::newRow("an empty text in the second bank and column") << "" << 9 << 1 << "PAD 10";
}

void TestVdjModel::editInPlace()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QString, name);
    Pads pads;
    pads.fill(row, column, strobe);
    PadsView view(pads.model);
    QApplication::setActiveWindow(&view.view);
    QVERIFY(QTest::qWaitForWindowActive(&view.view));
    const Listener listener(pads.model);

    const QPoint point = view.middleOf(row, column);
    QTest::mouseClick(view.view.viewport(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(view.view.viewport(), Qt::LeftButton, {}, point);
    auto *editor = view.view.viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    QCOMPARE(editor->text(), QString("My strobe"));
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Return);

    QTRY_COMPARE(pads.filled(), QStringList{Pads::told(row, column, {name, "3", "Strobe", "41", "#102030"})});
    QVERIFY(pads.model.flags(pads.model.index(row, column)).testFlag(Qt::ItemIsEditable));
    const QString tip = pads.model.index(row, column).data(Qt::ToolTipRole).toString();
    QVERIFY(tip.contains("\nLive Button: Strobe \n"));
    QVERIFY(tip.contains("\nDisplay Text: " + name + "\n"));
    QCOMPARE(listener.heard, QStringList());
}

void TestVdjModel::emptyPadIsNotEdited()
{
    Pads pads;
    PadsView view(pads.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const QPoint point = view.middleOf(2, 0);
    QTest::mouseClick(view.view.viewport(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(view.view.viewport(), Qt::LeftButton, {}, point);
    QVERIFY(!view.view.viewport()->findChild<QLineEdit *>());
}

void TestVdjModel::neverTellsOfChanges()
{
    VDJModel model;
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy headers(&model, &QAbstractItemModel::headerDataChanged);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);

    model.insertRows(0, 3);
    for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::DecorationRole),
                           int(Qt::BackgroundRole), int(PageRole), int(DisplayNameRole), int(ButtonRole)})
        QVERIFY(model.setData(model.index(1, 0), "2", role));
    QVERIFY(model.setData(model.index(1, 0), "", Qt::EditRole));
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(1, 0)}));
    for (const QModelIndex &to : {model.index(2, 1), model.index(2, 1), QModelIndex()}) // move, swap, beside
        QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, to));
    for (const QModelIndex &to : {model.index(0, 1), model.index(0, 1), QModelIndex()})
        QVERIFY(model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, to));
    model.removeRows(0, 3);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(headers.count(), 0);
    QCOMPARE(reset.count(), 0);
}

void TestVdjModel::modelContract()
{
    const Models::Complaints complaints(MeantComplaints);
    VDJModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    model.insertRows(0, 5);
    for (int row = 0; row < 5; ++row)
        model.setData(model.index(row, 0), QString::number(row));
    model.insertRows(0, 2);
    model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, model.index(3, 1));
    model.removeRows(3, 2);
    model.removeRows(0, 1);
    model.removeRows(0, model.rowCount());
    QCOMPARE(Models::Complaints::found(), QStringList());
}

void TestVdjModel::modelContractFrontStorage()
{
    const Models::Complaints complaints(MeantComplaints);
    VDJModel model(named({"a", "b", "c"}));
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    // The view is told of row 1, and the new row is row 0: what stood before row 1 is not the same.
    model.insertRows(1, 1);
    QCOMPARE(Models::Complaints::found().size(), 1);
    QVERIFY2(Models::Complaints::found().at(0).contains("model->index(start - 1, 0, c.parent)"),
             qPrintable(Models::Complaints::found().at(0)));
}

QTEST_MAIN(TestVdjModel)
#include "test_vdjmodel.moc"
