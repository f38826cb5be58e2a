#include "support/models.h"
#include "tables/controller.h"
#include "tables/record.h"
#include "tables/roles.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QMimeData>
#include <QtTest>

#include <memory>

namespace {

using Texts = QMap<int, QString>; // by role

/** The 12 rows of the program, each key at rest but one. */
class Grid final
{
public:
    explicit Grid(int row, int column, const Texts &changes = {})
    {
        model.insertRows(0, 12);
        key = model.index(row, column);
        Texts texts = {
            {Qt::EditRole, "My fog"}, {PageRole, "3"}, {DisplayNameRole, "Fog"}, {ButtonRole, "41"}};
        for (auto change = changes.cbegin(); change != changes.cend(); ++change)
            texts[change.key()] = change.value();
        for (auto text = texts.cbegin(); text != texts.cend(); ++text)
            model.setData(key, text.value(), text.key());
    }

    Controller model;
    QModelIndex key;
};

/** Fills a model with rows that are told apart by the names in their first column: "0", "1" and so on. */
void fillNumbered(Controller &model, int count)
{
    model.insertRows(0, count);
    for (int row = 0; row < count; ++row)
        model.setData(model.index(row, 0), QString::number(row));
}

QStringList numbers(int from, int to, int step = 1)
{
    QStringList numbers;
    for (int number = from; number <= to; number += step)
        numbers.append(QString::number(number));
    return numbers;
}

/** A square of a colour, as a tool tip holds it. */
QString square(const QString &color)
{
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(QColor(color));
    QBuffer buffer;
    image.save(&buffer, "PNG", 100);
    return "<img src='data:image/png;base64, " + buffer.data().toBase64() + "'>";
}

} // namespace

/** What the grid alone has of all tables: labels, tool tips, flags, and rows that are swept away. */
class TestController final : public QObject
{
    Q_OBJECT

private slots:
    void restingLabel_data();
    void restingLabel();
    void toolTip_data();
    void toolTip();
    void noToolTip_data();
    void noToolTip();
    void flags_data();
    void flags();
    void removeRows_data();
    void removeRows();
    void sweepBreaksTheContract();
};

void TestController::restingLabel_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("label");
    QTest::newRow("upper left corner") << 0 << 0 << "";
    QTest::newRow("beside the upper left corner, unlike the window's own") << 0 << 1 << "TOP 0";
    QTest::newRow("first of the top band") << 0 << 2 << "TOP 1";
    QTest::newRow("last of the top band") << 0 << 9 << "TOP 8";
    QTest::newRow("right of the top band") << 0 << 10 << "";
    QTest::newRow("upper right corner, unlike the window's own") << 0 << 11 << "TOP 10";
    QTest::newRow("gap below the top band") << 1 << 5 << "";
    QTest::newRow("left of that gap") << 1 << 0 << "";
    QTest::newRow("first of the left band") << 2 << 0 << "LEFT 1";
    QTest::newRow("last of the left band") << 9 << 0 << "LEFT 8";
    QTest::newRow("gap right of the left band") << 5 << 1 << "";
    QTest::newRow("first pad") << 2 << 2 << "PAD 1";
    QTest::newRow("last pad of the first row") << 2 << 9 << "PAD 8";
    QTest::newRow("first pad of the second row") << 3 << 2 << "PAD 9";
    QTest::newRow("last pad") << 9 << 9 << "PAD 64";
    QTest::newRow("gap left of the right band") << 5 << 10 << "";
    QTest::newRow("first of the right band") << 2 << 11 << "RIGHT 1";
    QTest::newRow("last of the right band") << 9 << 11 << "RIGHT 8";
    QTest::newRow("gap above the bottom band") << 10 << 5 << "";
    QTest::newRow("right of that gap") << 10 << 11 << "";
    QTest::newRow("lower left corner") << 11 << 0 << "";
    QTest::newRow("beside the lower left corner, unlike the window's own") << 11 << 1 << "BOTTOM 0";
    QTest::newRow("first of the bottom band") << 11 << 2 << "BOTTOM 1";
    QTest::newRow("last of the bottom band") << 11 << 9 << "BOTTOM 8";
    QTest::newRow("right of the bottom band") << 11 << 10 << "";
    QTest::newRow("lower right corner, unlike the window's own") << 11 << 11 << "BOTTOM 10";
}

/** A filled key tells its label in its tool tip, and leaves it behind when it moves away. */
void TestController::restingLabel()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, label);
    Grid grid(row, column);
    const QString tip = grid.key.data(Qt::ToolTipRole).toString();
    QCOMPARE(tip, label + "<br>Live Button: My fog<br><br>Right-click to Remove");

    const std::unique_ptr<QMimeData> data(grid.model.mimeData({grid.key}));
    const QModelIndex to = grid.model.index((row + 5) % 12, column);
    QVERIFY(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, to));
    for (const int role : {int(Qt::EditRole), int(DisplayNameRole)}) {
        QCOMPARE(grid.key.data(role).toString(), label);
        QVERIFY(!grid.key.data(role).toString().isNull()); // which a drag would tell apart
    }
}

void TestController::toolTip_data()
{
    QTest::addColumn<Texts>("changes");
    QTest::addColumn<QString>("text"); // between the label and the end
    const QString plain = "<br>Live Button: My fog";
    const QString off = "<br>Off Color : ";
    const QString on = "<br>On Color : ";
    const QString blinks = "<br>Blink : Yes";
    QTest::newRow("no colours, no blink") << Texts{} << plain;
    QTest::newRow("off colour alone") << Texts{{OffColorRole, "#FF8000"}} << plain + off + square("#FF8000");
    QTest::newRow("on colour alone") << Texts{{OnColorRole, "blue"}} << plain + on + square("blue");
    QTest::newRow("blink alone") << Texts{{BlinkRole, "1"}} << plain + blinks;
    QTest::newRow("both colours and blink")
        << Texts{{OffColorRole, "#010203"}, {OnColorRole, "#ffffff"}, {BlinkRole, "1"}}
        << plain + off + square("#010203") + on + square("#ffffff") + blinks;
    QTest::newRow("a colour that cannot be read is black")
        << Texts{{OffColorRole, "mud"}} << plain + off + square("#000000");
    QTest::newRow("empty blink") << Texts{{BlinkRole, ""}} << plain;
    QTest::newRow("any other blink") << Texts{{BlinkRole, "2"}} << plain;
    QTest::newRow("percent signs and markup in the name stay as they are")
        << Texts{{Qt::EditRole, "50%0 <b>%1"}, {OffColorRole, "red"}}
        << "<br>Live Button: 50%0 <b>%1" + off + square("red");
    QTest::newRow("the name shows, not the Live Button's own") << Texts{{DisplayNameRole, "other"}} << plain;
    QTest::newRow("the page does not matter") << Texts{{PageRole, "0"}} << plain;
    QTest::newRow("an available that is neither 0 nor 1") << Texts{{AvailableRole, ""}} << plain;
}

void TestController::toolTip()
{
    QFETCH(Texts, changes);
    QFETCH(QString, text);
    const Grid grid(3, 2, changes);
    QCOMPARE(grid.key.data(Qt::ToolTipRole), QVariant("PAD 9" + text + "<br><br>Right-click to Remove"));
}

void TestController::noToolTip_data()
{
    QTest::addColumn<Texts>("changes");
    QTest::newRow("an assignment that the device lacks a key for") << Texts{{AvailableRole, "0"}};
    QTest::newRow("LED colours without a Live Button") << Texts{{ButtonRole, "-1"}, {OffColorRole, "red"}};
    QTest::newRow("no key here") << Texts{{ButtonRole, "-1"}, {PageRole, "0"}, {AvailableRole, "0"}};
}

void TestController::noToolTip()
{
    QFETCH(Texts, changes);
    const Grid grid(3, 2, changes);
    QCOMPARE(grid.key.data(Qt::ToolTipRole), QVariant());
    QCOMPARE(grid.model.index(3, 3).data(Qt::ToolTipRole), QVariant()); // a fresh key
}

void TestController::flags_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("available");
    QTest::addColumn<int>("number");
    // 1 selectable, 4 draggable, 8 takes drops, 32 enabled, 128 without children
    const int emptyKey = 1 + 8 + 32 + 128;
    const int filledKey = emptyKey + 4;
    const int noKey = 128;
    const int leftOver = 1 + 128;
    const QString no = "0";
    QTest::newRow("empty key") << no << "1" << emptyKey;
    QTest::newRow("no key here") << no << no << noKey;
    QTest::newRow("filled key") << "3" << QString("1") << filledKey;
    QTest::newRow("an assignment left over") << "3" << no << leftOver;
    QTest::newRow("empty, neither available nor not") << no << QString() << noKey;
    QTest::newRow("filled, neither available nor not") << "3" << QString() << leftOver;
    QTest::newRow("blanked") << QString() << QString() << leftOver;
    QTest::newRow("available with an empty page") << QString() << QString("1") << filledKey;
    QTest::newRow("page 00 is not 0") << "00" << QString("1") << filledKey;
    QTest::newRow("available 01 is not 1") << no << "01" << noKey;
}

void TestController::flags()
{
    QFETCH(QString, page);
    QFETCH(QString, available);
    for (const char *button : {"-1", "41"}) { // the button does not matter
        const Grid grid(3, 11, {{PageRole, page}, {AvailableRole, available}, {ButtonRole, button}});
        QTEST(int(grid.model.flags(grid.key)), "number");
        QCOMPARE(int(grid.model.flags(grid.model.index(3, 10))), 1 + 8 + 32 + 128); // fresh
        QCOMPARE(int(grid.model.flags({})), 0);
    }
}

void TestController::removeRows_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("a count of 1 takes every second row") << 12 << 0 << 1 << numbers(1, 11, 2);
    QTest::newRow("a count of 2 takes three more") << 12 << 0 << 2 << QStringList{"3", "7", "11"};
    QTest::newRow("a count of 3 leaves one") << 12 << 0 << 3 << QStringList{"7"};
    QTest::newRow("a count of 4 leaves none") << 12 << 0 << 4 << QStringList();
    QTest::newRow("all") << 12 << 0 << 12 << QStringList();
    QTest::newRow("more than all") << 12 << 0 << 60000 << QStringList();
    QTest::newRow("from the middle") << 12 << 6 << 1 << numbers(0, 5) + QStringList{"7", "9", "11"};
    QTest::newRow("last") << 12 << 11 << 1 << numbers(0, 10);
    QTest::newRow("behind the last") << 12 << 12 << 1 << numbers(0, 11);
    QTest::newRow("a sweep that begins before the first row ends early")
        << 12 << -8 << 1 << QStringList{"1", "3", "5"} + numbers(7, 11);
    QTest::newRow("a sweep that ends before the first row") << 12 << -12 << 1 << numbers(0, 11);
    QTest::newRow("a sweep goes no further than 12 rows")
        << 36 << 0 << 1 << numbers(1, 23, 2) + numbers(24, 35);
    QTest::newRow("three rows") << 3 << 0 << 1 << QStringList{"1"};
    QTest::newRow("none") << 12 << 0 << 0 << numbers(0, 11);
    QTest::newRow("fewer than none") << 12 << 1 << -2 << numbers(0, 11);
    QTest::newRow("nothing from nothing") << 0 << 0 << 0 << QStringList();
}

void TestController::removeRows()
{
    QFETCH(int, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    Controller model;
    fillNumbered(model, before);
    const Models::RowLog log(model);
    QVERIFY(model.removeRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("remove", position, count, numbers(0, before - 1), after));
}

void TestController::sweepBreaksTheContract()
{
    const Models::Complaints complaints({"hasChildren(topIndex)", "model->parent(childIndex)"});
    Controller model;
    fillNumbered(model, 12);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    // The view is told of one row, and six are gone.
    model.removeRows(0, 1);
    QVERIFY(!Models::Complaints::found().isEmpty());
    QVERIFY2(Models::Complaints::found().at(0).contains("model->rowCount(parent)"),
             qPrintable(Models::Complaints::found().at(0)));
}

QTEST_MAIN(TestController)
#include "test_controller.moc"
