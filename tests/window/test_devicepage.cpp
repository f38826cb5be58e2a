#include "support/boxes.h"
#include "support/devices.h"
#include "support/texts.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

namespace {

using namespace Devices;

constexpr int NoDevice = -1;

/** How many keys each band of a device has: top, left, bottom, right. */
using Bands = QList<int>;
const Bands NoBands = {0, 0, 0, 0};
const QVector<Bands> BandsOf = {{0, 0, 8, 8}, {4, 0, 0, 8}, {8, 0, 0, 8}, {8, 0, 0, 8},
                                {4, 8, 8, 8}, {8, 0, 0, 8}, {8, 0, 0, 8}};

/** As Workspace::keys() tells them: bands and the 64 pads. */
QStringList keysOf(const Bands &bands)
{
    const auto line = [](int count) { return QString(count, 'X').leftJustified(8, '.'); };
    QStringList keys = {".." + line(bands.at(0)) + "..", QString(12, '.')};
    for (int row = 0; row < 8; ++row)
        keys += QString(row < bands.at(1) ? "X." : "..") + "XXXXXXXX" + (row < bands.at(3) ? ".X" : "..");
    return keys + QStringList{QString(12, '.'), ".." + line(bands.at(2)) + ".."};
}

/** Which colours stand as swatches in front of the items; "none" or "odd" where there is no proper one. */
QStringList swatchesOf(const QComboBox *combo)
{
    const int side = combo->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, combo);
    QStringList colors;
    for (int i = 0; i < combo->count(); ++i) {
        const QImage image = combo->itemData(i, Qt::DecorationRole).value<QPixmap>().toImage();
        QImage filled(side, side, image.format());
        if (!image.isNull())
            filled.fill(image.pixelColor(0, 0));
        colors.append(image.isNull() ? "none" : image == filled ? image.pixelColor(0, 0).name() : "odd");
    }
    return colors;
}

QStringList lowered(const QStringList &palette)
{
    QStringList names;
    for (const QString &color : palette)
        names.append(QColor(color).name());
    return names;
}

/** The grid's widths and heights that are not as they should be. */
QString oddSections(Workspace &space)
{
    for (int i = 0; i < 12; ++i) {
        const bool isGap = i == 1 || i == 10;
        if (space.gridView()->columnWidth(i) != (isGap ? 5 : 95)
            || space.gridView()->rowHeight(i) != (isGap ? 5 : 30))
            return QString("row or column %1").arg(i);
    }
    return {};
}

void spoilSections(Workspace &space)
{
    for (int i = 0; i < 12; ++i) {
        space.gridView()->setColumnWidth(i, 50);
        space.gridView()->setRowHeight(i, 20);
    }
}

/** Puts Live Buttons 3 and 4 on keys of a device and then has none. */
bool loseDevice(Workspace &space)
{
    if (!space.loadSomeShow() || !space.click("radio_outputmidi") || !space.choose("devicescombo", Pro)
        || !space.putOnKey(3, 2, 0) || !space.putOnKey(4, 2, 2))
        return false;
    space.find<QComboBox>("devicescombo")->setCurrentIndex(NoDevice);
    return true;
}

} // namespace

/** The device page: its four combo boxes, the grid that follows the device, and both tables at rest. */
class TestDevicePage final : public QObject
{
    Q_OBJECT

private slots:
    void deviceIsPictured_data();
    void deviceIsPictured();
    void updatemidicomboSelects();
    void updatelayoutRestores();

    void gridShowsMouseAndSelection();
    void pressOnDisabledKeyClearsTheSelection_data();
    void pressOnDisabledKeyClearsTheSelection();

    void tablesAtRest_data();
    void tablesAtRest();

    void noDeviceIsWorkedWith();
    void noDeviceHasNoBands_data();
    void noDeviceHasNoBands();
    void deviceComesBackAfterNone();
};

void TestDevicePage::deviceIsPictured_data()
{
    QTest::addColumn<int>("device");
    for (int device = 0; device < Names.size(); ++device)
        QTest::newRow(qPrintable(Names.at(device))) << device;
}

void TestDevicePage::deviceIsPictured()
{
    QFETCH(int, device);
    const QString name = Names.at(device);
    const QStringList palette = Palettes.at(device);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", device == Mk2 ? Pro : Mk2)); // so that the device is a change
    spoilSections(space);
    QVERIFY(space.choose("devicescombo", device));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("devicescombo")), Names);
    const auto *mappers = space.find<QComboBox>("mididevices");
    QCOMPARE(Workspace::itemsOf(mappers), (QStringList{Texts::SimpleMapper, Texts::factoryMapper(name)}));
    QCOMPARE(mappers->currentIndex(), 0);

    QCOMPARE(space.find<QGroupBox>("groupBox_colors")->isVisible(), !palette.isEmpty());
    QCOMPARE(space.find<QLabel>("label_10")->text(),
             palette.isEmpty() ? Texts::AnyColor : Texts::DefaultColors);
    const auto *off = space.find<QComboBox>("combo_offcolor");
    const auto *on = space.find<QComboBox>("combo_oncolor");
    for (const QComboBox *combo : {off, on}) {
        if (palette.isEmpty())
            continue;
        QCOMPARE(Workspace::itemsOf(combo), palette);
        QCOMPARE(swatchesOf(combo), lowered(palette));
        QCOMPARE(combo->iconSize(), QSize(20, 20));
        QCOMPARE(combo->currentIndex(), (combo == off ? OffColors : OnColors).at(device));
    }

    QCOMPARE(space.keys(), keysOf(BandsOf.at(device)));
    QCOMPARE(oddSections(space), QString());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

/** The grid itself waits for updatelayout, and the combo box of the devices is not touched. */
void TestDevicePage::updatemidicomboSelects()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi") && space.choose("devicescombo", Classic));
    QVERIFY(space.call("updatemidicombo", MiniMk3));
    QCOMPARE(space.find<QComboBox>("mididevices")->itemText(1), Texts::factoryMapper(Names.at(MiniMk3)));
    QCOMPARE(space.ask<QString>("getpadavail", 0, 5), QString("1"));
    QCOMPARE(space.ask<QString>("getpadavail", 0, 6), QString("0"));
    QCOMPARE(space.keys(), keysOf(BandsOf.at(Classic)));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), Classic);
}

void TestDevicePage::updatelayoutRestores()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi") && space.choose("devicescombo", Pro) && space.putOnKey(3, 2, 0));
    const QStringList before = space.snapshot();
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            const QString wrong = (row + col) % 2 ? "0" : "1";
            QVERIFY(space.grid()->setData(space.grid()->index(row, col), wrong, AvailableRole));
        }
    }
    spoilSections(space);
    space.find<QLineEdit>("padsname")->setFocus();
    QVERIFY(space.call("updatelayout"));
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(oddSections(space), QString());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestDevicePage::gridShowsMouseAndSelection()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QTableView *view = space.gridView();
    const QRect key = view->visualRect(space.grid()->index(4, 4));
    const QRect noKey = view->visualRect(space.grid()->index(0, 4));
    const auto background = [view](const QRect &rect) {
        return view->viewport()->grab(rect).toImage().pixelColor(1, 1).name();
    };
    QTest::mouseMove(view->viewport(), view->visualRect(space.grid()->index(9, 9)).center());
    QTRY_COMPARE(background(key), QString("#000000"));
    QTest::mouseMove(view->viewport(), key.center());
    QTRY_COMPARE(background(key), QString("#202020"));
    Workspace::select(view, "4,4");
    QCOMPARE(background(key), QString("#404040"));
    QTest::mouseMove(view->viewport(), noKey.center());
    QTRY_COMPARE(background(key), QString("#404040"));
    QCOMPARE(background(noKey), QString("#303030"));
}

void TestDevicePage::pressOnDisabledKeyClearsTheSelection_data()
{
    QTest::addColumn<bool>("isLeft");
    QTest::addColumn<QPoint>("pressed"); // row, column
    QTest::addColumn<bool>("isCleared");
    QTest::newRow("left button") << true << QPoint(10, 2) << true;
    QTest::newRow("right button, for the menu") << false << QPoint(10, 2) << false;
    QTest::newRow("left button on the key itself") << true << QPoint(2, 3) << false;
}

void TestDevicePage::pressOnDisabledKeyClearsTheSelection()
{
    QFETCH(bool, isLeft);
    QFETCH(QPoint, pressed);
    QFETCH(bool, isCleared);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QTableView *view = space.gridView();
    view->setCurrentIndex(space.grid()->index(2, 3));
    const QPoint point = view->visualRect(space.grid()->index(pressed.x(), pressed.y())).center();
    const Qt::MouseButton button = isLeft ? Qt::LeftButton : Qt::RightButton;
    QTest::mousePress(view->viewport(), button, {}, point);
    QCOMPARE(view->selectionModel()->hasSelection(), !isCleared);
    QTest::mouseRelease(view->viewport(), button, {}, point);
}

void TestDevicePage::tablesAtRest_data()
{
    QTest::addColumn<QStringList>("operations");
    QTest::addColumn<int>("padsWidth"); // of the first column
    QTest::newRow("load") << QStringList{"loadshowname"} << 150;
    QTest::newRow("new project") << QStringList{"on_actionNew_2_triggered"} << 150;
    QTest::newRow("clean and initpadlist") << QStringList{"cleanVDJ", "cleanMIDI", "initpadlist"} << 150;
    QTest::newRow("both Cleans") << QStringList{"on_cleanpads_button_clicked", "on_cleanmidi_button_clicked"}
                                 << 40;
}

void TestDevicePage::tablesAtRest()
{
    QFETCH(QStringList, operations);
    QFETCH(int, padsWidth);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radioButton_16pads") && space.putOnPad(1, 63, 1));
    QVERIFY(space.click("radio_outputmidi") && space.choose("devicescombo", Pro) && space.putOnKey(2, 9, 9));
    QVERIFY(space.grid()->setData(space.grid()->index(5, 5), "#ff0000", OnColorRole));
    QVERIFY(space.grid()->setData(space.grid()->index(5, 6), "0", AvailableRole));
    space.padsView()->setColumnWidth(0, 40);
    space.padsView()->showRow(20);
    spoilSections(space);
    space.find<QLineEdit>("padsname")->setFocus();
    for (const QString &slot : operations)
        QVERIFY(slot == "loadshowname" ? space.ask<bool>("loadshowname", space.home() + "/Show/Live/live.ini")
                                       : space.call(qPrintable(slot)));

    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.keys(), keysOf(BandsOf.at(Pro)));
    QCOMPARE(oddSections(space), QString());
    QCOMPARE(space.padsView()->columnWidth(0), padsWidth);
    QVERIFY(!space.padsView()->isColumnHidden(1));
    for (int row = 0; row < 64; ++row)
        QCOMPARE(space.padsView()->isRowHidden(row), row >= 8);
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(Workspace::focused() == "padsname",
             operations.contains("initpadlist") || operations.contains("loadshowname"));
}

void TestDevicePage::noDeviceIsWorkedWith()
{
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(5, 9, 9));
    QVERIFY(!space.putOnKey(6, 0, 2));
    QVERIFY(space.drag(space.grid()->index(2, 2), space.gridView(), space.grid()->index(9, 9)));
    QVERIFY(space.click("radio_outputpage") && space.click("cleanpads_button")
            && space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>({3, 4, 5}));
    QVERIFY(space.call("ondeletemidiaction_triggered", 2, 2)
            && space.call("ondeletemidiaction_triggered", 2, 0));
    QCOMPARE(space.ticked(), QList<int>({4}));
    space.dialogs.expect(Boxes::mappingCreated(Texts::PageName, {}));
    space.trigger("actionExport");
    QCOMPARE(space.dialogs.faults(), QString());
    for (const int device : {NoDevice, Names.size(), 999}) {
        QCOMPARE(space.ask<QString>("getdeviceoffcolor", device), QString());
        QCOMPARE(space.ask<QString>("getdeviceoncolor", device), QString());
    }
    QCOMPARE(space.ask<QString>("getdeviceoffcolor", Classic), ClassicPalette.at(OffColors.at(Classic)));
    QCOMPARE(space.ask<QString>("getdeviceoncolor", Classic), ClassicPalette.at(OnColors.at(Classic)));
}

void TestDevicePage::noDeviceHasNoBands_data()
{
    QTest::addColumn<bool>("isEmptied");
    QTest::newRow("on_cleanmidi_button_clicked") << true;
    QTest::newRow("on_actionNew_2_triggered") << true;
    QTest::newRow("loadshowname") << true;
    QTest::newRow("updatelayout") << false;
    QTest::newRow("on_devicescombo_currentIndexChanged") << false; // beyond the list
}

void TestDevicePage::noDeviceHasNoBands()
{
    QFETCH(const bool, isEmptied);
    const QByteArray slot = QTest::currentDataTag();
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    if (slot == "loadshowname")
        QVERIFY(space.ask<bool>(slot, space.home() + "/Show/Live/live.ini"));
    else
        QVERIFY(slot.endsWith("Changed") ? space.call(slot, Names.size()) : space.call(slot));
    QCOMPARE(space.keys(), keysOf(NoBands));
    QCOMPARE(space.leftOnGrid().isEmpty(), isEmptied);
    QCOMPARE(space.find<QComboBox>("mididevices")->count(), 0);
    for (const char *name : {"combo_offcolor", "combo_oncolor"}) {
        const auto *combo = space.find<QComboBox>(name);
        QCOMPARE(combo->currentText(), QString());
        QCOMPARE(swatchesOf(combo).count("none"), combo->count());
    }
}

void TestDevicePage::deviceComesBackAfterNone()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    const QStringList before = space.snapshot();
    space.find<QComboBox>("devicescombo")->setCurrentIndex(NoDevice);
    QVERIFY(space.choose("devicescombo", Akai));
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(swatchesOf(space.find<QComboBox>("combo_oncolor")), lowered(AkaiPalette));
}

QTEST_MAIN(TestDevicePage)
#include "test_devicepage.moc"
