#include "support/payload.h"
#include "tables/controller.h"
#include "tables/dragpayload.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QColor>
#include <QMimeData>
#include <QStandardItemModel>
#include <QtTest>

#include <ctime>
#include <memory>

namespace {

using Payload::colorBytes;
using Payload::textBytes;

const QString TextList = "application/vnd.text.list";
const QString Color = "application/x-color";

const QByteArray invalidColor("\0\xFF\xFF\0\0\0\0\0\0\0\0", 11);

std::optional<DragPayload> payloadOf(const QByteArray &texts, const QByteArray &colors)
{
    return DragPayload::fromMime(Payload::of(texts, colors).get());
}

QStringList textsOf(const DragPayload &payload)
{
    QStringList texts;
    for (int position = DragPayload::Row; position <= DragPayload::Blink; ++position)
        texts += payload.text(position);
    return texts;
}

/** Eleven texts: the given ones, and empty ones behind them. */
QStringList filledUp(QStringList texts)
{
    while (texts.size() < 11)
        texts += QString();
    return texts;
}

/** As platforms do, with a class of its own for what another program drags. */
class DataFromOutside final : public QMimeData
{
    Q_OBJECT
};

const QStringList LiveButton = {"3", "0", "Strobe", "2", "Strobe", "1", "14", "1", {}, {}, {}};
const QStringList PadCell = {"9", "1", "Slow", "2", "Strobe Slow", "0", "14"};

} // namespace

/** What a drag carries between the tables: its bytes, and reading good and bad ones. */
class TestDragPayload final : public QObject
{
    Q_OBJECT

private slots:
    void writesTexts_data();
    void writesTexts();
    void writesColors_data();
    void writesColors();
    void writesOneRecordForEachCell();
    void readsRecords_data();
    void readsRecords();
    void readsColors_data();
    void readsColors();
    void refusesMissingParts();
    void refusesOtherPrograms();
    void refusesDamage_data();
    void refusesDamage();
    void keepsTextsInFrontOfDamage_data();
    void keepsTextsInFrontOfDamage();
    void readsNumbers_data();
    void readsNumbers();
    void readsOrigins_data();
    void readsOrigins();
    void givesEmptyTextsOutsideTheRecord();
    void readsAMillionRecordsFast();
};

void TestDragPayload::writesTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ASCII") << QVariant("AB") << QByteArray("\0\0\0\4\0A\0B", 8);
    QTest::newRow("empty") << QVariant("") << QByteArray("\0\0\0\0", 4);
    QTest::newRow("null") << QVariant(QString()) << QByteArray("\xFF\xFF\xFF\xFF", 4);
    QTest::newRow("nothing there") << QVariant() << QByteArray("\xFF\xFF\xFF\xFF", 4);
    QTest::newRow("number") << QVariant(-7) << QByteArray("\0\0\0\4\0-\0007", 8);
    QTest::newRow("letter beyond one byte")
        << QVariant(QString(QChar(0x0141))) << QByteArray("\0\0\0\2\1\x41", 6);
    QTest::newRow("letter of value zero") << QVariant(QString(QChar(0))) << QByteArray("\0\0\0\2\0\0", 6);
}

/** A literal travels like a text of the model. */
void TestDragPayload::writesTexts()
{
    QFETCH(const QVariant, value);
    QFETCH(const QByteArray, bytes);
    QStandardItemModel table(1, 1);
    const QModelIndex cell = table.index(0, 0);
    QVERIFY(table.setData(cell, value, DisplayNameRole));
    for (const DragField &field : {DragField::role(DisplayNameRole), DragField::literal(value.toString())}) {
        const std::unique_ptr<QMimeData> data(createDragData({cell}, {field}));
        QCOMPARE(data->data(TextList).toHex(' '), (textBytes({"0", "0"}) + bytes).toHex(' '));
    }
}

void TestDragPayload::writesColors_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("hash and digits") << QVariant("#FF8001") << colorBytes(255, 128, 1);
    QTest::newRow("lower-case digits") << QVariant("#ff8001") << colorBytes(255, 128, 1);
    QTest::newRow("black") << QVariant("#000000") << colorBytes(0, 0, 0);
    QTest::newRow("white") << QVariant("#FFFFFF") << QByteArray("\1\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\0\0", 11);
    QTest::newRow("word") << QVariant("green") << colorBytes(0, 128, 0);
    QTest::newRow("colour value") << QVariant(QColor(1, 2, 3)) << colorBytes(1, 2, 3);
    QTest::newRow("no colour text") << QVariant("no colour") << invalidColor;
    QTest::newRow("empty") << QVariant("") << invalidColor;
    QTest::newRow("nothing there") << QVariant() << invalidColor;
}

void TestDragPayload::writesColors()
{
    QFETCH(const QVariant, value);
    QFETCH(const QByteArray, bytes);
    QStandardItemModel table(1, 1);
    const QModelIndex cell = table.index(0, 0);
    QVERIFY(table.setData(cell, value, Qt::DecorationRole));
    const std::unique_ptr<QMimeData> data(createDragData({cell}, {}));
    QCOMPARE(data->data(Color).size(), 11);
    QCOMPARE(data->data(Color).toHex(' '), bytes.toHex(' '));
}

void TestDragPayload::writesOneRecordForEachCell()
{
    QStandardItemModel table(12, 2);
    const QModelIndex first = table.index(11, 1);
    const QModelIndex second = table.index(0, 0);
    QVERIFY(table.setData(first, "A", Qt::EditRole));
    QVERIFY(table.setData(first, "#010203", Qt::DecorationRole));
    QVERIFY(table.setData(second, "B", Qt::EditRole));
    QVERIFY(table.setData(second, "#ffffff", Qt::DecorationRole));

    const std::unique_ptr<QMimeData> data(createDragData(
        {first, QModelIndex(), second}, {DragField::literal("x"), DragField::role(Qt::EditRole)}));
    QCOMPARE(data->formats(), (QStringList{TextList, Color}));
    QCOMPARE(data->data(TextList), textBytes({"11", "1", "x", "A", "0", "0", "x", "B"}));
    QCOMPARE(data->data(Color), colorBytes(1, 2, 3) + colorBytes(255, 255, 255));

    for (const QModelIndexList &cells : {QModelIndexList(), QModelIndexList{QModelIndex()}}) {
        const std::unique_ptr<QMimeData> nothing(createDragData(cells, {DragField::literal("x")}));
        QCOMPARE(nothing->formats(), (QStringList{TextList, Color}));
        QCOMPARE(nothing->data(TextList) + nothing->data(Color), QByteArray());
    }
}

void TestDragPayload::readsRecords_data()
{
    QTest::addColumn<QStringList>("record");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("Live Button") << LiveButton << LiveButton;
    QTest::newRow("pad") << PadCell << filledUp(PadCell);
    const QStringList key = {"11", "4", "Slow", "2", "Slow", "0", "14", "1", "#550000", "yellow", "1"};
    QTest::newRow("key") << key << key;
    QTest::newRow("one text") << QStringList{"3"} << filledUp({"3"});
    QTest::newRow("one empty text") << QStringList{""} << filledUp({});
    QTest::newRow("one null text") << QStringList{QString()} << filledUp({});
    QTest::newRow("six texts") << QStringList(LiveButton.mid(0, 6)) << filledUp(LiveButton.mid(0, 6));
    QTest::newRow("twelve texts") << key + QStringList{"more"} << key;
    QTest::newRow("letters beyond ASCII") << QStringList{"0", "0", QString::fromUtf8("Été 🔥")}
                                          << filledUp({"0", "0", QString::fromUtf8("Été 🔥")});
}

void TestDragPayload::readsRecords()
{
    QFETCH(const QStringList, record);
    QFETCH(const QStringList, texts);
    const auto payload = payloadOf(textBytes(record), colorBytes(1, 2, 3));
    QVERIFY(payload);
    QCOMPARE(textsOf(*payload), texts);
    QCOMPARE(payload->color(), QString("#010203"));
}

void TestDragPayload::readsColors_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("color");
    QTest::newRow("lower-case digits") << colorBytes(255, 171, 1) << "#ffab01";
    QTest::newRow("black") << colorBytes(0, 0, 0) << "#000000";
    QTest::newRow("invalid colour") << invalidColor << "#000000";
    QTest::newRow("half transparent") << QByteArray("\1\x80\x80\xFF\xFF\0\0\0\0\0\0", 11) << "#ff0000";
    QTest::newRow("no multiple of 257")
        << QByteArray("\1\xFF\xFF\x12\x34\x56\x78\x9A\xBC\0\0", 11) << "#12569a";
    QTest::newRow("padding that is not zero")
        << QByteArray("\1\xFF\xFF\xFF\xFF\0\0\0\0\xFF\xFF", 11) << "#ff0000";
    QTest::newRow("two colours, the first counts") << colorBytes(1, 2, 3) + colorBytes(4, 5, 6) << "#010203";
    QTest::newRow("a colour and a half") << colorBytes(1, 2, 3) + colorBytes(4, 5, 6).left(5) << "#010203";
    QTest::newRow("missing") << QByteArray() << "";
    QTest::newRow("cut off behind its kind") << colorBytes(1, 2, 3).left(1) << "";
    QTest::newRow("cut off in a channel") << colorBytes(1, 2, 3).left(6) << "";
    QTest::newRow("cut off before its last byte") << colorBytes(1, 2, 3).left(10) << "";
}

void TestDragPayload::readsColors()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, color);
    const auto payload = payloadOf(textBytes(LiveButton), bytes);
    QVERIFY(payload);
    QCOMPARE(payload->color(), color);
    QCOMPARE(textsOf(*payload), LiveButton);
}

void TestDragPayload::refusesMissingParts()
{
    QMimeData data;
    data.setText("Strobe");
    data.setData("application/vnd.text.lists", textBytes(LiveButton));
    QVERIFY(!DragPayload::fromMime(&data));
    QVERIFY(!DragPayload::fromMime(nullptr));
    data.setData(TextList, textBytes(LiveButton));
    QVERIFY(!DragPayload::fromMime(&data)); // no colour
    data.setData(Color, colorBytes(255, 0, 0));
    QVERIFY(DragPayload::fromMime(&data));
    data.removeFormat(TextList);
    QVERIFY(!DragPayload::fromMime(&data)); // no texts
}

void TestDragPayload::refusesOtherPrograms()
{
    DataFromOutside data;
    data.setData(TextList, textBytes(LiveButton));
    data.setData(Color, colorBytes(255, 0, 0));
    QVERIFY(!DragPayload::fromMime(&data));

    VDJModel pads;
    Controller keys;
    for (QAbstractItemModel *table : QList<QAbstractItemModel *>{&pads, &keys}) {
        table->insertRows(0, 1);
        const std::unique_ptr<QMimeData> own(table->mimeData({table->index(0, 0)}));
        QVERIFY(table->canDropMimeData(own.get(), Qt::CopyAction, -1, -1, table->index(0, 0)));
        QVERIFY(!table->canDropMimeData(&data, Qt::CopyAction, -1, -1, table->index(0, 0)));
    }
}

void TestDragPayload::refusesDamage_data()
{
    QTest::addColumn<QByteArray>("texts");
    QTest::newRow("empty part") << QByteArray();
    QTest::newRow("cut off in the first count") << QByteArray("\0\0\0", 3);
    QTest::newRow("cut off behind the first count") << textBytes(LiveButton).left(4);
    QTest::newRow("cut off in the first text") << textBytes(LiveButton).left(5);
    QTest::newRow("odd count") << QByteArray("\0\0\0\3\0A\0B", 8);
    QTest::newRow("huge count") << QByteArray("\xFF\xFF\xFF\xFE\0A\0B", 8);
    QTest::newRow("huge odd count") << QByteArray("\x7F\xFF\xFF\xFF\0A\0B", 8);
    QTest::newRow("count past the largest integer") << QByteArray("\x80\0\0\0\0A\0B", 8);
    QTest::newRow("letters instead of a stream") << QByteArray("Strobe,2,Strobe,1");
}

void TestDragPayload::refusesDamage()
{
    QFETCH(const QByteArray, texts);
    QVERIFY(!payloadOf(texts, colorBytes(255, 0, 0)));
}

void TestDragPayload::keepsTextsInFrontOfDamage_data()
{
    QTest::addColumn<QByteArray>("damage");
    QTest::newRow("cut off in a count") << QByteArray("\0\0", 2);
    QTest::newRow("cut off behind a count") << QByteArray("\0\0\0\4", 4);
    QTest::newRow("cut off in a text") << QByteArray("\0\0\0\4\0A", 6);
    QTest::newRow("cut off in a letter") << QByteArray("\0\0\0\4\0A\0", 7);
    QTest::newRow("odd count") << QByteArray("\0\0\0\1\0A", 6);
    QTest::newRow("huge count") << QByteArray("\xFF\xFF\xFF\xFE\0A", 6);
    QTest::newRow("count of a thousand million") << QByteArray("\x40\0\0\0\0A", 6);
    QTest::newRow("noise") << QByteArray("\x12\x34\x56\x79\x9A\xBC\xDE", 7);
}

void TestDragPayload::keepsTextsInFrontOfDamage()
{
    QFETCH(const QByteArray, damage);
    for (int whole = 1; whole < LiveButton.size(); ++whole) {
        const auto payload = payloadOf(textBytes(LiveButton.mid(0, whole)) + damage, colorBytes(255, 0, 0));
        QVERIFY(payload);
        QCOMPARE(textsOf(*payload), filledUp(LiveButton.mid(0, whole)));
        QCOMPARE(payload->color(), QString("#ff0000"));
    }
    // Behind the first record it does not matter.
    const auto payload = payloadOf(textBytes(LiveButton) + damage, colorBytes(255, 0, 0));
    QVERIFY(payload);
    QCOMPARE(textsOf(*payload), LiveButton);
}

void TestDragPayload::readsNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("two digits") << "63" << 63;
    QTest::newRow("negative") << "-1" << -1;
    QTest::newRow("largest integer") << "2147483647" << 2147483647;
    QTest::newRow("past the largest integer") << "2147483648" << 0;
    QTest::newRow("digits and letters") << "3a" << 0;
    QTest::newRow("hexadecimal") << "0x10" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("null") << QString() << 0;
}

void TestDragPayload::readsNumbers()
{
    QFETCH(const QString, text);
    const auto payload = payloadOf(textBytes({text, "5"}), colorBytes(0, 0, 0));
    const auto turned = payloadOf(textBytes({"5", text}), colorBytes(0, 0, 0));
    QVERIFY(payload && turned);
    QTEST(payload->sourceRow(), "number");
    QCOMPARE(payload->sourceColumn(), 5);
    QCOMPARE(turned->sourceRow(), 5);
    QTEST(turned->sourceColumn(), "number");
}

void TestDragPayload::readsOrigins_data()
{
    QTest::addColumn<QString>("origin");
    QTest::addColumn<bool>("isLiveButton");
    QTest::addColumn<bool>("isMove");
    QTest::newRow("Live Buttons table") << "1" << true << false;
    QTest::newRow("the same table") << "0" << false << true;
    QTest::newRow("another digit") << "2" << false << false;
    QTest::newRow("two digits") << "01" << false << false;
    QTest::newRow("a blank behind") << "1 " << false << false;
    QTest::newRow("empty") << "" << false << false;
}

void TestDragPayload::readsOrigins()
{
    QFETCH(const QString, origin);
    const auto payload =
        payloadOf(textBytes({"0", "0", "Strobe", "2", "Strobe", origin}), colorBytes(0, 0, 0));
    QVERIFY(payload);
    QTEST(payload->isLiveButton(), "isLiveButton");
    QTEST(payload->isMove(), "isMove");
}

void TestDragPayload::givesEmptyTextsOutsideTheRecord()
{
    const auto payload = payloadOf(textBytes(PadCell), QByteArray());
    QVERIFY(payload);
    for (const int position : {-1000, -1, 7, 11, 1000000})
        QCOMPARE(payload->text(position), QString());
    QCOMPARE(payload->text(DragPayload::Button), QString("14"));
}

void TestDragPayload::readsAMillionRecordsFast()
{
    const QByteArray texts = textBytes(LiveButton).repeated(1000000);
    const QByteArray colors = colorBytes(1, 2, 3).repeated(1000000);
    const std::clock_t begin = std::clock(); // processor time: other programs do not count
    const auto payload = payloadOf(texts, colors);
    const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
    QVERIFY(payload);
    QCOMPARE(textsOf(*payload), LiveButton);
    QCOMPARE(payload->color(), QString("#010203"));
    QVERIFY2(seconds < 0.5, qPrintable(QString("%1 s").arg(seconds)));
}

QTEST_GUILESS_MAIN(TestDragPayload)
#include "test_dragpayload.moc"
