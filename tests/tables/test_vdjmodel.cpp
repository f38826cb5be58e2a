#include "support/texts.h"
#include "tables/record.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QLineEdit>
#include <QMimeData>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

/** The 64 rows of the program, each pad at rest but one. */
class Pads final
{
public:
    explicit Pads(int row, int column = 0, const QString &name = "My strobe", const QString &page = "3",
                  const QString &ownName = "Strobe", const QString &button = "41")
    {
        model.insertRows(0, 64);
        pad = model.index(row, column);
        model.setData(pad, name);
        model.setData(pad, page, PageRole);
        model.setData(pad, ownName, DisplayNameRole);
        model.setData(pad, button, ButtonRole);
    }

    Record record(const QModelIndex &cell) const { return model.getlist().at(cell.row()).at(cell.column()); }

    VDJModel model;
    QModelIndex pad;
};

} // namespace

/** What pads alone have of all tables: labels, tool tips, texts that are typed. */
class TestVdjModel final : public QObject
{
    Q_OBJECT

private slots:
    void emptyName_data();
    void emptyName();
    void labelLeftBehind_data();
    void labelLeftBehind();
    void toolTip_data();
    void toolTip();
    void flags_data();
    void flags();
    void editInPlace_data();
    void editInPlace();
};

void TestVdjModel::emptyName_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::newRow("first pad") << 0 << 0 << "PAD 1";
    QTest::newRow("second column counts as the first") << 0 << 1 << "PAD 1";
    QTest::newRow("last of the bank") << 7 << 0 << "PAD 8";
    QTest::newRow("the count runs on in the second bank") << 9 << 0 << "PAD 10";
    QTest::newRow("last pad") << 63 << 1 << "PAD 64";
}

/** A pad whose text is cleared stays filled. */
void TestVdjModel::emptyName()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, name);
    for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole)}) {
        for (const QVariant &value : {QVariant(""), QVariant(QString()), QVariant()}) {
            Pads pads(row, column);
            Record expected = pads.record(pads.pad);
            expected["name"] = name;
            QVERIFY(pads.model.setData(pads.pad, value, role));
            QCOMPARE(pads.record(pads.pad), expected);
        }
    }
}

void TestVdjModel::labelLeftBehind_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("label");
    QTest::newRow("first pad") << 0 << 0 << "PAD 1";
    QTest::newRow("last row of the first bank") << 7 << 0 << "PAD 8";
    QTest::newRow("first row of the second bank") << 8 << 0 << "PAD 1";
    QTest::newRow("second column counts as the first") << 9 << 1 << "PAD 2";
    QTest::newRow("last pad") << 63 << 1 << "PAD 8";
}

/** Counted in its bank, where the label of a cleared text counts through all banks. */
void TestVdjModel::labelLeftBehind()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, label);
    Pads pads(row, column);
    const std::unique_ptr<QMimeData> data(pads.model.mimeData({pads.pad}));
    const QModelIndex beside = pads.model.index(row, 1 - column);
    QVERIFY(pads.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, beside));
    const Record atRest = {{"name", label},
                           {"dspname", label},
                           {"id", Texts::NoButton},
                           {"color", Texts::NoColor},
                           {"pagenr", Texts::NoPage}};
    QCOMPARE(pads.record(pads.pad), atRest);
}

void TestVdjModel::toolTip_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("pad"); // name, page, own name, button
    QTest::addColumn<QString>("text");    // its beginning; empty for no tool tip
    const QStringList strobe = {"My strobe", "3", "Strobe", "41"};
    const QString strobeText = "PAD 1 \nLive Button: Strobe \nDisplay Text: My strobe\n\n";
    QTest::newRow("row 0") << 0 << 0 << strobe << strobeText;
    QTest::newRow("second column counts as the first") << 0 << 1 << strobe << strobeText;
    QTest::newRow("last row") << 63 << 1 << QStringList{"My par", "2", "Par", "17"}
                              << "PAD 64 \nLive Button: Par \nDisplay Text: My par\n\n";
    QTest::newRow("texts with percent signs and markup stay as they are")
        << 9 << 0 << QStringList{"%1 <b>", "1", "%2 & %0", "0"}
        << "PAD 10 \nLive Button: %2 & %0 \nDisplay Text: %1 <b>\n\n";
    QTest::newRow("empty pad") << 0 << 0 << QStringList{"1", "0", "1", "-1"} << "";
    QTest::newRow("the button alone decides: page without button")
        << 0 << 0 << QStringList{"x", "3", "x", "-1"} << "";
    QTest::newRow("the button alone decides: button without page")
        << 0 << 0 << QStringList{"x", "0", "y", "5"} << "PAD 1 \nLive Button: y \nDisplay Text: x\n\n";
    QTest::newRow("blanked pad") << 2 << 0 << QStringList{"", "", "", ""}
                                 << "PAD 3 \nLive Button:  \nDisplay Text: PAD 3\n\n";
}

void TestVdjModel::toolTip()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QStringList, pad);
    QFETCH(QString, text);
    const Pads pads(row, column, pad.at(0), pad.at(1), pad.at(2), pad.at(3));
    const QVariant tip = pads.pad.data(Qt::ToolTipRole);
    const QString end = "Double-click to edit Text\nRight-click to Remove";
    QCOMPARE(tip, text.isEmpty() ? QVariant() : QVariant(text + end));
}

void TestVdjModel::flags_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("number");
    // 1 selectable, 2 editable, 4 draggable, 8 takes drops, 32 enabled, 128 without children
    const int empty = 1 + 8 + 32 + 128;
    const int filled = empty + 2 + 4;
    const QString none = "-1";
    QTest::newRow("empty") << "0" << none << empty;
    QTest::newRow("filled") << "3" << QString("41") << filled;
    QTest::newRow("the page alone decides: button without page") << "0" << QString("41") << empty;
    QTest::newRow("the page alone decides: page without button") << "1" << none << filled;
    QTest::newRow("blanked") << QString() << QString() << filled;
    QTest::newRow("page 00 is not 0") << "00" << none << filled;
    QTest::newRow("page -1 is not 0") << none << none << filled;
}

void TestVdjModel::flags()
{
    QFETCH(QString, page);
    QFETCH(QString, button);
    for (const int column : {0, 1}) {
        const Pads pads(3, column, "x", page, "y", button);
        QTEST(int(pads.model.flags(pads.pad)), "number");
        QCOMPARE(int(pads.model.flags({})), 15);
    }
}

void TestVdjModel::editInPlace_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::newRow("a new text") << "Blackout"
                                << "Blackout";
    QTest::newRow("an empty text") << ""
                                   << "PAD 10";
}

/** A filled pad takes a text of the user's beside the Live Button's own name; an empty one takes none. */
void TestVdjModel::editInPlace()
{
    QFETCH(QString, typed);
    QFETCH(QString, name);
    Pads pads(9, 1);
    QTableView view;
    view.setModel(&pads.model);
    view.resize(300, 400);
    view.show();
    QApplication::setActiveWindow(&view);
    QVERIFY(QTest::qWaitForWindowActive(&view));
    const auto doubleClick = [&view](const QModelIndex &pad) {
        const QPoint point = view.visualRect(pad).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, point);
        return view.viewport()->findChild<QLineEdit *>();
    };
    QVERIFY(!doubleClick(pads.model.index(9, 0)));
    QLineEdit *editor = doubleClick(pads.pad);
    QVERIFY(editor);
    QCOMPARE(editor->text(), QString("My strobe"));
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Return);

    const Record edited = {
        {"name", name}, {"dspname", "Strobe"}, {"id", "41"}, {"color", Texts::NoColor}, {"pagenr", "3"}};
    QTRY_COMPARE(pads.record(pads.pad), edited);
}

QTEST_MAIN(TestVdjModel)
#include "test_vdjmodel.moc"
