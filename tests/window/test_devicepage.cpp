#include "support/boxes.h"
#include "support/devices.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>

namespace {

using namespace Devices;

const QStringList AkaiKeys = {
    "............", //
    "............", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "............", //
    "..XXXXXXXX..",
};
const QStringList ClassicKeys = {
    "..XXXXXXXX..", //
    "............", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "............", //
    "............",
};
const QStringList MiniMk3Keys = {
    "..XXXX......", //
    "............", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "..XXXXXXXX.X", //
    "............", //
    "............",
};
const QStringList ProKeys = {
    "..XXXX......", //
    "............", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "X.XXXXXXXX.X", //
    "............", //
    "..XXXXXXXX..",
};
/** What is left where no device is selected. */
const QStringList NoBands = {
    "............", //
    "............", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "..XXXXXXXX..", //
    "............", //
    "............",
};

/** Whether all rows of a combo box's popup are tall. */
bool hasTallRows(const QComboBox *combo)
{
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemData(i, Qt::SizeHintRole).toSize() != QSize(25, 25))
            return false;
    }
    return combo->count() > 0;
}

/** Which colours stand as swatches in front of the items; "none" or "odd" where there is no proper one. */
QStringList swatchesOf(const QComboBox *combo)
{
    const int side = combo->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, combo);
    QStringList colors;
    for (int i = 0; i < combo->count(); ++i) {
        const auto pixmap = combo->itemData(i, Qt::DecorationRole).value<QPixmap>();
        if (pixmap.isNull()) {
            colors.append("none");
            continue;
        }
        QImage image = pixmap.toImage();
        const QColor color = image.pixelColor(0, 0);
        QImage filled(image.size(), image.format());
        filled.fill(color);
        colors.append(image.size() == QSize(side, side) && image == filled ? color.name() : "odd");
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

/** What is not as it should be with a combo box of default colours; empty if all is well. */
QString oddPalette(const QComboBox *combo, const QStringList &palette, const QString &current)
{
    if (Workspace::itemsOf(combo) != palette)
        return "items: " + Workspace::itemsOf(combo).join(", ");
    if (swatchesOf(combo) != lowered(palette))
        return "swatches: " + swatchesOf(combo).join(", ");
    if (!hasTallRows(combo) || combo->iconSize() != QSize(20, 20))
        return "sizes";
    return combo->currentText() == current ? QString() : "current: " + combo->currentText();
}

/** The grid's widths and heights that are not as they should be. */
QString oddSections(Workspace &space)
{
    for (int i = 0; i < 12; ++i) {
        const bool isGap = i == 1 || i == 10;
        if (space.gridView()->columnWidth(i) != (isGap ? 5 : 95))
            return QString("column %1 is %2 wide").arg(i).arg(space.gridView()->columnWidth(i));
        if (space.gridView()->rowHeight(i) != (isGap ? 5 : 30))
            return QString("row %1 is %2 high").arg(i).arg(space.gridView()->rowHeight(i));
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

/** What the tables show of a cell; for a comparison before and after. */
QStringList content(const QModelIndex &cell)
{
    QStringList values;
    for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole), int(PageRole), int(DisplayNameRole),
                           int(ButtonRole), int(OffColorRole), int(OnColorRole), int(BlinkRole)})
        values.append(cell.data(role).toString());
    return values;
}

/** Puts Live Buttons 3 and 4 on keys of a device and then has none. */
bool loseDevice(Workspace &space)
{
    if (!space.loadSomeShow() || !space.click("radio_outputmidi") || !space.choose("devicescombo", Pro)
        || !space.putOnKey(3, 2, 0) || !space.putOnKey(4, 2, 2))
        return false;
    space.find<QComboBox>("devicescombo")->setCurrentIndex(-1);
    return true;
}

} // namespace

/** The device page: its four combo boxes, the grid that follows the device, and both tables at rest. */
class TestDevicePage final : public QObject
{
    Q_OBJECT

private slots:
    void listsTheDevices();
    void deviceIsPictured_data();
    void deviceIsPictured();
    void startsWithTheFirstDevice();
    void startIsAsSelecting();

    void rgbDeviceLeavesTheColoursOfTheLastPalette();
    void everyChangeTakesTheDefaultsAnew();
    void sameDeviceAgainChangesNothing();
    void focusGoesToTheGrid();
    void updatemidicomboSelects_data();
    void updatemidicomboSelects();
    void updatelayoutRestores();

    void assignmentsSurviveADevice();
    void paintingStaysOnUnavailableKeys();
    void keysOfTheNewDeviceTakeDrops();
    void gridShowsMouseAndSelection_data();
    void gridShowsMouseAndSelection();

    void namesCells_data();
    void namesCells();
    void knowsKeys_data();
    void knowsKeys();

    void tablesAtRest_data();
    void tablesAtRest();
    void initpadlistLeavesTheFocus();
    void initpadlistSizesTheColumns();

    void noDeviceShowsNoPalette_data();
    void noDeviceShowsNoPalette();
    void noDeviceTakesDrops();
    void noDeviceLetsKeysGo();
    void noDeviceLeavesThePadsAlone();
    void noDeviceExportsAllTheSame();
    void noDeviceHasNoBands_data();
    void noDeviceHasNoBands();
    void deviceComesBackAfterNone();

    void pressOnDisabledKeyClearsTheSelection_data();
    void pressOnDisabledKeyClearsTheSelection();
};

void TestDevicePage::listsTheDevices()
{
    Workspace space;
    auto *combo = space.find<QComboBox>("devicescombo");
    QCOMPARE(Workspace::itemsOf(combo), Names);
    QVERIFY(hasTallRows(combo));
    for (int i = 0; i < combo->count(); ++i) {
        QVERIFY(combo->itemIcon(i).isNull());
        QVERIFY(!combo->itemData(i).isValid());
    }
    QCOMPARE(combo->currentIndex(), 0);
}

void TestDevicePage::deviceIsPictured_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("palette"); // empty for a device that takes any colour
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QStringList>("keys");
    const QStringList none;
    QTest::newRow("AKAI APC Mini") << Akai << "AKAI APC Mini" << AkaiPalette << "yellow"
                                   << "green" << AkaiKeys;
    QTest::newRow("Mini MK3") << MiniMk3 << "Novation Launchpad Mini MK3" << none << ""
                              << "" << MiniMk3Keys;
    QTest::newRow("Mini") << Mini << "Novation Launchpad Mini" << ClassicPalette << "#000000"
                          << "#FF0000" << ClassicKeys;
    QTest::newRow("MKII") << Mk2 << "Novation Launchpad MKII" << none << ""
                          << "" << ClassicKeys;
    QTest::newRow("PRO") << Pro << "Novation Launchpad PRO" << none << ""
                         << "" << ProKeys;
    QTest::newRow("S") << S << "Novation Launchpad S" << ClassicPalette << "#000000"
                       << "#FF0000" << ClassicKeys;
    QTest::newRow("Launchpad") << Classic << "Novation Launchpad" << ClassicPalette << "#000000"
                               << "#FF0000" << ClassicKeys;
}

void TestDevicePage::deviceIsPictured()
{
    QFETCH(int, device);
    QFETCH(QString, name);
    QFETCH(QStringList, palette);
    QFETCH(QString, off);
    QFETCH(QString, on);
    QFETCH(QStringList, keys);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", device == Mk2 ? Pro : Mk2)); // so that the device is a change
    spoilSections(space);
    QVERIFY(space.choose("devicescombo", device));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentText(), name);

    auto *mappers = space.find<QComboBox>("mididevices");
    QCOMPARE(Workspace::itemsOf(mappers), QStringList({"Simple OS2L mapping", name + " mapping (factory)"}));
    QVERIFY(hasTallRows(mappers));
    QCOMPARE(mappers->currentIndex(), 0);
    for (int i = 0; i < mappers->count(); ++i) {
        QVERIFY(mappers->itemIcon(i).isNull());
        QVERIFY(!mappers->itemData(i).isValid());
    }

    QCOMPARE(space.find<QGroupBox>("groupBox_colors")->isVisible(), !palette.isEmpty());
    QCOMPARE(space.find<QLabel>("label_10")->text(),
             QString(palette.isEmpty() ? "Colors : Device has RGB Leds." : "Default Colors"));
    if (!palette.isEmpty()) {
        QCOMPARE(oddPalette(space.find<QComboBox>("combo_offcolor"), palette, off), QString());
        QCOMPARE(oddPalette(space.find<QComboBox>("combo_oncolor"), palette, on), QString());
    }

    QCOMPARE(space.keys(), keys);
    QCOMPARE(oddSections(space), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestDevicePage::startsWithTheFirstDevice()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentText(), QString("AKAI APC Mini"));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("mididevices")),
             QStringList({"Simple OS2L mapping", "AKAI APC Mini mapping (factory)"}));
    QCOMPARE(space.find<QLabel>("label_10")->text(), QString("Default Colors"));
    QVERIFY(space.find<QGroupBox>("groupBox_colors")->isVisible());
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentText(), QString("yellow"));
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentText(), QString("green"));
    QCOMPARE(space.keys(), AkaiKeys);
    QCOMPARE(oddSections(space), QString());
}

void TestDevicePage::startIsAsSelecting()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    const QStringList atStart = space.snapshot();
    QVERIFY(space.choose("devicescombo", Classic));
    QVERIFY(space.snapshot() != atStart);
    QVERIFY(space.choose("devicescombo", Akai));
    QCOMPARE(space.snapshot(), atStart);
}

void TestDevicePage::rgbDeviceLeavesTheColoursOfTheLastPalette()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Mini));
    QVERIFY(space.choose("combo_offcolor", 9));
    QVERIFY(space.choose("combo_oncolor", 12));

    QVERIFY(space.choose("devicescombo", Mk2));
    QVERIFY(!space.find<QGroupBox>("groupBox_colors")->isVisible());
    for (const char *object : {"combo_offcolor", "combo_oncolor"}) {
        QCOMPARE(Workspace::itemsOf(space.find<QComboBox>(object)), ClassicPalette);
        QCOMPARE(swatchesOf(space.find<QComboBox>(object)), lowered(ClassicPalette));
    }
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentIndex(), 9);
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentIndex(), 12);

    QVERIFY(space.choose("devicescombo", Mini));
    QVERIFY(space.find<QGroupBox>("groupBox_colors")->isVisible());
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combo_offcolor")), ClassicPalette);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentIndex(), 0);
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentIndex(), 3);
}

void TestDevicePage::everyChangeTakesTheDefaultsAnew()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", S));
    QVERIFY(space.choose("mididevices", 1));
    QVERIFY(space.choose("combo_offcolor", 9));
    QVERIFY(space.choose("combo_oncolor", 12));
    QVERIFY(space.choose("devicescombo", Classic)); // of the same palette
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentIndex(), 0);
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentIndex(), 3);
    QCOMPARE(space.find<QComboBox>("mididevices")->currentIndex(), 0);
}

void TestDevicePage::sameDeviceAgainChangesNothing()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", S));
    QVERIFY(space.choose("combo_offcolor", 9));
    spoilSections(space);
    auto *page = space.find<QLineEdit>("padsname");
    page->setFocus();
    auto *combo = space.find<QComboBox>("devicescombo");
    QSignalSpy changed(combo, QOverload<int>::of(&QComboBox::currentIndexChanged));

    combo->setCurrentIndex(S);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentIndex(), 9);
    QCOMPARE(space.gridView()->columnWidth(1), 50);
    QCOMPARE(Workspace::focused(), QString("padsname"));
}

void TestDevicePage::focusGoesToTheGrid()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    auto *combo = space.find<QComboBox>("devicescombo");
    combo->setFocus();
    QCOMPARE(Workspace::focused(), QString("devicescombo"));
    QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(combo->currentIndex(), 1);
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestDevicePage::updatemidicomboSelects_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("mapper");
    QTest::addColumn<QString>("top"); // whether the cells of the top band are keys
    QTest::newRow("AKAI APC Mini") << Akai << "AKAI APC Mini mapping (factory)"
                                   << "000000000000";
    QTest::newRow("Mini MK3") << MiniMk3 << "Novation Launchpad Mini MK3 mapping (factory)"
                              << "001111000000";
    QTest::newRow("MKII") << Mk2 << "Novation Launchpad MKII mapping (factory)"
                          << "001111111100";
    QTest::newRow("PRO") << Pro << "Novation Launchpad PRO mapping (factory)"
                         << "001111000000";
}

void TestDevicePage::updatemidicomboSelects()
{
    QFETCH(int, device);
    QFETCH(QString, mapper);
    QFETCH(QString, top);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Classic));
    const QStringList keys = space.keys();
    QVERIFY(space.call("updatemidicombo", device));
    QCOMPARE(space.find<QComboBox>("mididevices")->itemText(1), mapper);
    QString available;
    for (int col = 0; col < 12; ++col)
        available += space.ask<QString>("getpadavail", 0, col);
    QCOMPARE(available, top);

    // The grid itself waits for updatelayout, and the combo box of the devices is not touched.
    QCOMPARE(space.keys(), keys);
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), Classic);
}

void TestDevicePage::updatelayoutRestores()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Pro));
    QVERIFY(space.putOnKey(3, 2, 0));
    const QStringList before = content(space.grid()->index(2, 0));
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            const QString wrong = (row + col) % 2 ? "0" : "1";
            QVERIFY(space.grid()->setData(space.grid()->index(row, col), wrong, AvailableRole));
        }
    }
    spoilSections(space);
    space.find<QLineEdit>("padsname")->setFocus();

    QVERIFY(space.call("updatelayout"));
    QCOMPARE(space.keys(), ProKeys);
    QCOMPARE(oddSections(space), QString());
    QCOMPARE(content(space.grid()->index(2, 0)), before);
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestDevicePage::assignmentsSurviveADevice()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Pro));
    const QList<QPoint> cells = {{0, 2}, {2, 0}, {11, 9}, {9, 11}, {4, 4}}; // row, column
    QVector<QStringList> before;
    for (int i = 0; i < cells.size(); ++i) {
        const QModelIndex key = space.grid()->index(cells.at(i).x(), cells.at(i).y());
        QVERIFY(space.putOnKey(i + 1, key.row(), key.column()));
        QVERIFY(space.grid()->setData(key, "#123456", OnColorRole));
        QVERIFY(space.grid()->setData(key, "1", BlinkRole));
        before.append(content(key));
        QCOMPARE(key.data(ButtonRole).toInt(), i + 1);
    }
    const QList<int> ticked = space.ticked();

    for (int device : {Classic, S, Mk2, Mini, MiniMk3, Akai, Pro}) {
        QVERIFY(space.choose("devicescombo", device));
        for (int i = 0; i < cells.size(); ++i)
            QCOMPARE(content(space.grid()->index(cells.at(i).x(), cells.at(i).y())), before.at(i));
        QCOMPARE(space.ticked(), ticked);
        QVERIFY(!space.ask<bool>("isMIDIempty"));
    }

    // A key that the device lacks can neither be dragged nor dropped on, until the device has it again.
    const QModelIndex left = space.grid()->index(2, 0);
    QVERIFY(space.choose("devicescombo", Akai));
    QCOMPARE(left.data(AvailableRole).toString(), QString("0"));
    QVERIFY(!left.flags().testFlag(Qt::ItemIsDragEnabled));
    QVERIFY(!space.putOnKey(9, 2, 0));
    QVERIFY(space.choose("devicescombo", Pro));
    QCOMPARE(left.data(AvailableRole).toString(), QString("1"));
    QVERIFY(space.drag(left, space.gridView(), space.grid()->index(3, 0)));
    QCOMPARE(space.grid()->index(3, 0).data(ButtonRole).toString(), QString("2"));
}

void TestDevicePage::paintingStaysOnUnavailableKeys()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.grid()->setData(space.grid()->index(0, 4), "#abcdef", Qt::DecorationRole));
    QVERIFY(space.choose("devicescombo", Classic)); // has a key there
    QVERIFY(space.choose("devicescombo", Akai));    // has none
    QCOMPARE(space.grid()->index(0, 4).data(Qt::DecorationRole).value<QColor>(), QColor("#abcdef"));
}

void TestDevicePage::keysOfTheNewDeviceTakeDrops()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(!space.putOnKey(1, 0, 5));
    QVERIFY(space.putOnKey(2, 11, 5));
    QVERIFY(space.choose("devicescombo", MiniMk3));
    QVERIFY(space.putOnKey(1, 0, 5));
    QVERIFY(!space.putOnKey(1, 0, 6));
    QVERIFY(!space.putOnKey(1, 11, 4));
    QCOMPARE(space.ticked(), QList<int>({1, 2}));
}

void TestDevicePage::gridShowsMouseAndSelection_data()
{
    QTest::addColumn<QPoint>("cell"); // row, column
    QTest::addColumn<bool>("isUnderMouse");
    QTest::addColumn<bool>("isSelected");
    QTest::addColumn<QColor>("background");
    const QPoint key(4, 4);
    const QPoint noKey(0, 4);
    QTest::newRow("key at rest") << key << false << false << QColor("#000000");
    QTest::newRow("key under the mouse") << key << true << false << QColor("#202020");
    QTest::newRow("selected key") << key << false << true << QColor("#404040");
    QTest::newRow("selected key under the mouse") << key << true << true << QColor("#404040");
    QTest::newRow("no key") << noKey << false << false << QColor("#303030");
    QTest::newRow("no key under the mouse") << noKey << true << false << QColor("#303030");
}

void TestDevicePage::gridShowsMouseAndSelection()
{
    QFETCH(QPoint, cell);
    QFETCH(bool, isUnderMouse);
    QFETCH(bool, isSelected);
    QFETCH(QColor, background);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QTableView *view = space.gridView();
    const QRect rect = view->visualRect(space.grid()->index(cell.x(), cell.y()));
    Workspace::select(view, isSelected ? QString("%1,%2").arg(cell.x()).arg(cell.y()) : QString());
    QTest::mouseMove(view->viewport(), view->visualRect(space.grid()->index(9, 9)).center());
    if (isUnderMouse)
        QTest::mouseMove(view->viewport(), rect.center());
    QTRY_COMPARE(view->viewport()->grab(rect).toImage().pixelColor(1, 1), background);
}

void TestDevicePage::namesCells_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("text");
    const auto row = [](int r, int c, const char *text) { QTest::addRow("%d, %d", r, c) << r << c << text; };
    row(0, 0, "");
    row(0, 1, "");
    row(0, 2, "TOP 1");
    row(0, 9, "TOP 8");
    row(0, 10, "");
    row(0, 11, "");
    row(1, 0, "");
    row(1, 1, "");
    row(1, 5, "");
    row(1, 11, "");
    row(2, 0, "LEFT 1");
    row(2, 1, "");
    row(2, 2, "PAD 1");
    row(2, 9, "PAD 8");
    row(2, 10, "");
    row(2, 11, "RIGHT 1");
    row(3, 2, "PAD 9");
    row(5, 5, "PAD 28");
    row(9, 0, "LEFT 8");
    row(9, 2, "PAD 57");
    row(9, 9, "PAD 64");
    row(9, 11, "RIGHT 8");
    row(10, 0, "");
    row(10, 5, "");
    row(10, 10, "");
    row(11, 0, "");
    row(11, 1, "");
    row(11, 2, "BOTTOM 1");
    row(11, 9, "BOTTOM 8");
    row(11, 10, "");
    row(11, 11, "");
}

void TestDevicePage::namesCells()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, text);

    Workspace space;
    QCOMPARE(space.ask<QString>("getpadtext", row, col), text);
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Pro)); // of all bands; the labels do not depend on it
    QCOMPARE(space.ask<QString>("getpadtext", row, col), text);
    QCOMPARE(space.grid()->index(row, col).data().toString(), text);
}

void TestDevicePage::knowsKeys_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("AKAI APC Mini") << Akai << AkaiKeys;
    QTest::newRow("Mini MK3") << MiniMk3 << MiniMk3Keys;
    QTest::newRow("Mini") << Mini << ClassicKeys;
    QTest::newRow("MKII") << Mk2 << ClassicKeys;
    QTest::newRow("PRO") << Pro << ProKeys;
    QTest::newRow("S") << S << ClassicKeys;
    QTest::newRow("Launchpad") << Classic << ClassicKeys;
}

void TestDevicePage::knowsKeys()
{
    QFETCH(int, device);
    QFETCH(QStringList, keys);

    Workspace space;
    QVERIFY(space.call("updatemidicombo", device));
    for (int row = 0; row < 12; ++row) {
        QString line;
        for (int col = 0; col < 12; ++col) {
            const QString answer = space.ask<QString>("getpadavail", row, col);
            QVERIFY2(answer == "1" || answer == "0", qPrintable(answer));
            line += answer == "1" ? 'X' : '.';
        }
        QCOMPARE(line, keys.at(row));
    }
}

void TestDevicePage::tablesAtRest_data()
{
    QTest::addColumn<QByteArray>("by");
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("keys");
    for (const QByteArray by : {"load", "new project", "clean and initpadlist"}) {
        QTest::addRow("%s, AKAI APC Mini", by.constData()) << by << Akai << AkaiKeys;
        QTest::addRow("%s, PRO", by.constData()) << by << Pro << ProKeys;
        QTest::addRow("%s, Launchpad", by.constData()) << by << Classic << ClassicKeys;
    }
    QTest::newRow("start") << QByteArray("start") << Akai << AkaiKeys;
}

void TestDevicePage::tablesAtRest()
{
    QFETCH(QByteArray, by);
    QFETCH(int, device);
    QFETCH(QStringList, keys);

    Workspace space;
    if (by != "start") {
        QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
        QVERIFY(space.click("radioButton_16pads"));
        QVERIFY(space.putOnPad(1, 63, 1));
        QVERIFY(space.click("radio_outputmidi"));
        QVERIFY(space.choose("devicescombo", device));
        QVERIFY(space.putOnKey(2, 9, 9));
        QVERIFY(space.grid()->setData(space.grid()->index(5, 5), "#ff0000", OnColorRole));
        QVERIFY(space.grid()->setData(space.grid()->index(5, 6), "0", AvailableRole));
        space.padsView()->showRow(20);
        spoilSections(space);
    }
    if (by == "load") {
        QVERIFY(space.ask<bool>("loadshowname", space.home() + "/Show/Live/live.ini"));
    } else if (by == "new project") {
        space.trigger("actionNew_2");
    } else if (by != "start") {
        QVERIFY(space.call("cleanVDJ"));
        QVERIFY(space.call("cleanMIDI"));
        QVERIFY(space.call("initpadlist"));
    }

    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.keys(), keys);
    QCOMPARE(oddSections(space), QString());
    for (int row = 0; row < 64; ++row)
        QCOMPARE(space.padsView()->isRowHidden(row), row >= 8);
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestDevicePage::initpadlistLeavesTheFocus()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    auto *page = space.find<QLineEdit>("padsname");
    page->setFocus();
    QVERIFY(space.call("cleanVDJ"));
    QVERIFY(space.call("cleanMIDI"));
    QVERIFY(space.call("initpadlist"));
    QCOMPARE(Workspace::focused(), QString("padsname"));
}

void TestDevicePage::initpadlistSizesTheColumns()
{
    Workspace space;
    QVERIFY(space.click("radioButton_16pads"));
    space.padsView()->setColumnWidth(0, 40);
    space.trigger("actionNew_2");
    QCOMPARE(space.padsView()->columnWidth(0), 150);
    QVERIFY(!space.padsView()->isColumnHidden(1));
}

void TestDevicePage::noDeviceShowsNoPalette_data()
{
    QTest::addColumn<int>("before");
    QTest::newRow("after a palette device") << Classic;
    QTest::newRow("after an RGB device") << Pro;
}

void TestDevicePage::noDeviceShowsNoPalette()
{
    QFETCH(int, before);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", before));
    space.find<QComboBox>("devicescombo")->setCurrentIndex(-1);
    QCOMPARE(space.find<QComboBox>("mididevices")->count(), 0);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentText(), QString());
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentText(), QString());
    for (const QString &swatch : swatchesOf(space.find<QComboBox>("combo_offcolor")))
        QCOMPARE(swatch, QString("none"));
    QCOMPARE(space.keys(), NoBands);
    QCOMPARE(oddSections(space), QString());
}

void TestDevicePage::noDeviceTakesDrops()
{
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(5, 9, 9));
    QVERIFY(!space.putOnKey(6, 0, 2));
    QVERIFY(space.drag(space.grid()->index(2, 2), space.gridView(), space.grid()->index(9, 9)));
    QCOMPARE(space.ticked(), QList<int>({3, 4, 5}));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestDevicePage::noDeviceLetsKeysGo()
{
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.call("ondeletemidiaction_triggered", 2, 2));
    QVERIFY(space.call("ondeletemidiaction_triggered", 2, 0));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestDevicePage::noDeviceLeavesThePadsAlone()
{
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(space.putOnPad(6, 0));
    QVERIFY(space.click("cleanpads_button"));
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>({3, 4}));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestDevicePage::noDeviceExportsAllTheSame()
{
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    space.dialogs.expect(Boxes::mappingCreated("OS2L DMX", {}));
    space.trigger("actionExport");
    QCOMPARE(space.ask<QString>("getdeviceoffcolor", -1), QString());
    QCOMPARE(space.ask<QString>("getdeviceoncolor", -1), QString());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestDevicePage::noDeviceHasNoBands_data()
{
    QTest::addColumn<QByteArray>("act");
    QTest::addColumn<bool>("isEmptied");
    QTest::newRow("clean") << QByteArray("clean") << true;
    QTest::newRow("new project") << QByteArray("new project") << true;
    QTest::newRow("load a show") << QByteArray("load") << true;
    QTest::newRow("layout") << QByteArray("layout") << false;
    QTest::newRow("device beyond the list") << QByteArray("beyond") << false;
}

void TestDevicePage::noDeviceHasNoBands()
{
    QFETCH(const QByteArray, act);
    QFETCH(const bool, isEmptied);
    Workspace space;
    QVERIFY2(loseDevice(space), qPrintable(space.dialogs.faults()));
    if (act == "clean")
        QVERIFY(space.click("cleanmidi_button"));
    else if (act == "new project")
        space.trigger("actionNew_2");
    else if (act == "load")
        QVERIFY(space.ask<bool>("loadshowname", space.home() + "/Show/Live/live.ini"));
    else if (act == "layout")
        QVERIFY(space.call("updatelayout"));
    else
        QVERIFY(space.call("on_devicescombo_currentIndexChanged", Names.size()));

    QCOMPARE(space.keys(), NoBands);
    QCOMPARE(space.leftOnGrid().isEmpty(), isEmptied);
    QCOMPARE(space.find<QComboBox>("mididevices")->count(), 0);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestDevicePage::deviceComesBackAfterNone()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Akai));
    const QStringList before = space.snapshot();
    space.find<QComboBox>("devicescombo")->setCurrentIndex(-1);
    QVERIFY(space.choose("devicescombo", Akai));
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(swatchesOf(space.find<QComboBox>("combo_oncolor")), lowered(AkaiPalette));
}

void TestDevicePage::pressOnDisabledKeyClearsTheSelection_data()
{
    QTest::addColumn<bool>("isLeft");
    QTest::addColumn<QPoint>("pressed"); // column and row
    QTest::addColumn<bool>("isCleared");
    QTest::newRow("left button") << true << QPoint(2, 10) << true;
    QTest::newRow("right button, for the menu") << false << QPoint(2, 10) << false;
    QTest::newRow("left button on the key itself") << true << QPoint(3, 2) << false;
}

void TestDevicePage::pressOnDisabledKeyClearsTheSelection()
{
    QFETCH(bool, isLeft);
    QFETCH(QPoint, pressed);
    QFETCH(bool, isCleared);

    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    space.gridView()->setCurrentIndex(space.grid()->index(2, 3));
    const Qt::MouseButton button = isLeft ? Qt::LeftButton : Qt::RightButton;
    const QModelIndex key = space.grid()->index(pressed.y(), pressed.x());
    QTest::mousePress(space.gridView()->viewport(), button, {}, space.gridView()->visualRect(key).center());
    QCOMPARE(space.gridView()->selectionModel()->isSelected(space.grid()->index(2, 3)), !isCleared);
    QTest::mouseRelease(space.gridView()->viewport(), button, {}, space.gridView()->visualRect(key).center());
}

QTEST_MAIN(TestDevicePage)
#include "test_devicepage.moc"
