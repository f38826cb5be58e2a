#include "support/devices.h"
#include "support/focuslog.h"
#include "support/workspace.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QWindow>

namespace {

using namespace Devices;

const char MenuSheet[] = "QMenu {padding: 2px; background-color: black; border:1px solid #505050;}"
                         "QMenu::item{color:#aaaaaa; background-color: #101010;}"
                         "QMenu::item:selected{color:white;background: #404040;}"
                         "QMenu::separator{height: 1px; margin: 5px; background: #909090; }";

const QStringList KeyMenu = {"Remove",    "---", "Off Color >",      "On Color >",
                             "[ ] Blink", "---", "[ ] Set as Switch"};
const QStringList EmptyKeyMenu = {"---", "[ ] Set as Switch"};
const QStringList RgbColors = {"✔default", "---", "Select ..."};

/** An entry in words: "---" is a separator, "[x] " stands before what is ticked, " >" behind a submenu. */
QString wordsFor(const QAction *action)
{
    if (action->isSeparator())
        return "---";
    const QString box = action->isChecked() ? "[x] " : "[ ] ";
    return (action->isCheckable() ? box : QString()) + action->text() + (action->menu() ? " >" : "");
}

QStringList entriesOf(const QMenu *menu)
{
    QStringList entries;
    for (const QAction *action : menu->actions())
        entries.append(wordsFor(action));
    return entries;
}

/** The entries that the menu has room for: it leaves out separators that separate nothing. */
QStringList entriesInSight(const QMenu *menu)
{
    QStringList entries;
    for (QAction *action : menu->actions()) {
        if (!menu->actionGeometry(action).isEmpty())
            entries.append(wordsFor(action));
    }
    return entries;
}

QMenu *submenuOf(const QMenu *menu, const QString &text)
{
    for (const QAction *action : menu->actions()) {
        if (action->text() == text && action->menu())
            return action->menu();
    }
    qFatal("no submenu %s", qPrintable(text));
}

/** The colour that fills an entry's icon of 10 by 10; "none" without an icon, "odd" for any other one. */
QString iconOf(const QAction *action)
{
    if (action->icon().isNull())
        return "none";
    if (action->icon().availableSizes() != QList<QSize>{{10, 10}})
        return "odd";
    const QImage image = action->icon().pixmap(10, 10).toImage().convertToFormat(QImage::Format_ARGB32);
    QImage filled(10, 10, QImage::Format_ARGB32);
    filled.fill(image.pixelColor(0, 0));
    return image == filled && image.pixelColor(0, 0).alpha() == 255 ? image.pixelColor(0, 0).name() : "odd";
}

QStringList iconsOf(const QMenu *menu)
{
    QStringList icons;
    for (const QAction *action : menu->actions())
        icons.append(iconOf(action));
    return icons;
}

/** A palette's submenu where the colour in words is the cell's; none where that is no entry. */
QStringList colorEntries(const QStringList &palette, const QString &current)
{
    QStringList entries = {current == "default" ? "✔default" : " default", "---"};
    for (const QString &color : palette)
        entries.append((color == current ? "✔" : " ") + color);
    return entries;
}

/** A loaded show of 16 Live Buttons, two pads columns on show. */
bool startOnPads(Workspace &space)
{
    return space.loadSomeShow() && space.click("radioButton_16pads");
}

bool startOnKeys(Workspace &space, int device)
{
    return space.loadSomeShow() && space.click("radio_outputmidi") && space.choose("devicescombo", device);
}

/** A point of the grid's viewport that has no cell under it, at the lower right. */
QPoint besideTheCells(const QTableView *view)
{
    const QPoint corner = view->viewport()->rect().bottomRight() - QPoint(3, 3);
    if (view->indexAt(corner).isValid())
        qFatal("no place beside the cells");
    return corner;
}

/** All that a key keeps. */
QMap<int, QString> valuesOf(const QModelIndex &key)
{
    QMap<int, QString> values;
    for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole), int(Qt::ForegroundRole), int(PageRole),
                           int(DisplayNameRole), int(ButtonRole), int(AvailableRole), int(OffColorRole),
                           int(OnColorRole), int(BlinkRole)})
        values.insert(role, key.data(role).toString());
    return values;
}

/** Gives a key an off colour, an on colour and a blink text. */
bool paint(Workspace &space, const QModelIndex &key, const QString &off, const QString &on,
           const QString &blink)
{
    return space.grid()->setData(key, off, OffColorRole) && space.grid()->setData(key, on, OnColorRole)
           && space.grid()->setData(key, blink, BlinkRole);
}

bool toggleSwitch(Workspace &space, const QPoint &cell)
{
    return space.pickOnKey(cell.x(), cell.y(), {"Set as Switch"});
}

/** The keys, as "row,column", whose menu shows Switch ticked. */
QStringList switches(Workspace &space)
{
    QStringList cells;
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            QMenu *menu = space.rightClick(space.gridView(), space.grid()->index(row, col));
            if (!menu)
                qFatal("no menu on a key");
            if (wordsFor(menu->actions().constLast()) == "[x] Set as Switch")
                cells.append(QString("%1,%2").arg(row).arg(col));
            menu->close();
        }
    }
    return cells;
}

/** What of a key is not as the Switch has it; empty if all is. */
QString lacksOfSwitch(Workspace &space, const QPoint &cell)
{
    const QModelIndex key = space.grid()->index(cell.x(), cell.y());
    const QList<QPair<int, QVariant>> expected = {
        {Qt::EditRole, "SWITCH"},
        {DisplayNameRole, "SWITCH"},
        {PageRole, "0"},
        {ButtonRole, "-1"},
        {AvailableRole, "0"},
        {Qt::ForegroundRole, QColor("green")},
        {Qt::DecorationRole, QColor(Qt::black)},
    };
    for (const auto &[role, value] : expected) {
        if (key.data(role) != value)
            return QString("role %1 is \"%2\"").arg(role).arg(key.data(role).toString());
    }
    const QRect rect = space.gridView()->visualRect(key);
    const QImage picture = space.gridView()->viewport()->grab(rect).toImage();
    if (picture.pixelColor(1, 1) != QColor("#303030"))
        return "painted as " + picture.pixelColor(1, 1).name();
    return {};
}

/** What of a key is not as removal leaves it; empty if all is. */
QString lacksOfRest(Workspace &space, const QPoint &cell, const QString &label)
{
    const QModelIndex key = space.grid()->index(cell.x(), cell.y());
    const QList<QPair<int, QVariant>> expected = {
        {Qt::EditRole, label},
        {DisplayNameRole, label},
        {PageRole, "0"},
        {ButtonRole, "-1"},
        {AvailableRole, "1"},
        {Qt::ForegroundRole, QColor(Qt::white)},
        {Qt::DecorationRole, QColor(Qt::black)},
    };
    for (const auto &[role, value] : expected) {
        if (key.data(role) != value)
            return QString("role %1 is \"%2\"").arg(role).arg(key.data(role).toString());
    }
    return {};
}

void deleteWhatIsDue()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int childrenOf(Workspace &space)
{
    deleteWhatIsDue();
    return space.window().findChildren<QObject *>().size();
}

} // namespace

/** The menus of pads and keys: what they offer, and what their entries do. */
class TestMenus final : public QObject
{
    Q_OBJECT

private slots:
    void padMenu_data();
    void padMenu();
    void emptyPadHasNoMenu_data();
    void emptyPadHasNoMenu();
    void blankedPadHasMenu();
    void padsMenuBesideTheCells_data();
    void padsMenuBesideTheCells();
    void removesPads_data();
    void removesPads();

    void emptyKeyMenu_data();
    void emptyKeyMenu();
    void keyMenuOfDevice_data();
    void keyMenuOfDevice();
    void keyMenuShowsTheKey_data();
    void keyMenuShowsTheKey();
    void rgbMenuShowsTheKey_data();
    void rgbMenuShowsTheKey();
    void colorOfAnotherDevice_data();
    void colorOfAnotherDevice();
    void keyMenuBesideTheCells_data();
    void keyMenuBesideTheCells();
    void keyMenuWithoutDevice_data();
    void keyMenuWithoutDevice();

    void choosesColor_data();
    void choosesColor();
    void choosesColorBesideTheCells();
    void colorByNumber_data();
    void colorByNumber();
    void asksForColor_data();
    void asksForColor();
    void asksForColorBySlot_data();
    void asksForColorBySlot();
    void asksForColorWithoutMenu_data();
    void asksForColorWithoutMenu();
    void blinks_data();
    void blinks();
    void blinksBesideTheCells();
    void removesKeys_data();
    void removesKeys();
    void menuOfALeftoverIsForNoOtherKey_data();
    void menuOfALeftoverIsForNoOtherKey();
    void defaultColors_data();
    void defaultColors();

    void setsSwitch_data();
    void setsSwitch();
    void switchLeavesOtherCopies();
    void unticksSwitch_data();
    void unticksSwitch();
    void movesSwitch_data();
    void movesSwitch();
    void switchIsOfTheClickedKeyAlone();
    void switchTakesNoDrops();
    void switchBesideTheCells();
    void switchStaysMarked_data();
    void switchStaysMarked();
    void switchIsForgottenByAShow_data();
    void switchIsForgottenByAShow();
    void switchAndDevices();
    void switchThatTookALiveButton();
    void focusAfterSwitch_data();
    void focusAfterSwitch();

    void opensAtTheMouse_data();
    void opensAtTheMouse();
    void opensByTheMouse_data();
    void opensByTheMouse();
    void closesByEscape_data();
    void closesByEscape();
    void menuOverAnOpenMenu_data();
    void menuOverAnOpenMenu();
    void tableChangesUnderTheMenu_data();
    void tableChangesUnderTheMenu();
    void windowGoesWithAnOpenMenu_data();
    void windowGoesWithAnOpenMenu();
    void menusAreFreed_data();
    void menusAreFreed();
};

void TestMenus::padMenu_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("first pad") << 3 << 0 << 0;
    QTest::newRow("Live Button number 0") << 0 << 7 << 0;
    QTest::newRow("second column") << 3 << 2 << 1;
    QTest::newRow("pad of another bank") << 3 << 20 << 0;
    QTest::newRow("last pad of all") << 15 << 63 << 1;
}

void TestMenus::padMenu()
{
    QFETCH(int, button);
    QFETCH(int, row);
    QFETCH(int, col);

    Workspace space;
    QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(button, row, col));
    const QMenu *menu = space.rightClick(space.padsView(), space.pads()->index(row, col));
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), QStringList({"Remove"}));
    QCOMPARE(entriesInSight(menu), QStringList({"Remove"}));
    QCOMPARE(iconsOf(menu), QStringList({"none"}));
    QCOMPARE(menu->styleSheet(), QString(MenuSheet));
    QCOMPARE(menu->parent(), &space.window());
    QVERIFY(menu->actions().constFirst()->isEnabled());
}

void TestMenus::emptyPadHasNoMenu_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("before");
    QTest::newRow("untouched") << 1 << 0 << "";
    QTest::newRow("untouched, second column") << 0 << 1 << "";
    QTest::newRow("a typed name") << 1 << 0 << "name";
    QTest::newRow("its Live Button was removed") << 1 << 0 << "removed";
    QTest::newRow("its Live Button was moved away") << 1 << 0 << "moved";
}

void TestMenus::emptyPadHasNoMenu()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, before);

    Workspace space;
    QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 0, 0));
    const QModelIndex pad = space.pads()->index(row, col);
    if (before == "name") {
        QVERIFY(space.pads()->setData(pad, "Intro", Qt::EditRole));
    } else if (!before.isEmpty()) {
        QVERIFY(space.putOnPad(4, row, col));
        if (before == "moved")
            QVERIFY(space.drag(pad, space.padsView(), space.pads()->index(5, 0)));
        else
            QVERIFY(Workspace::pick(space.rightClick(space.padsView(), pad), {"Remove"}));
    }
    QVERIFY(!space.rightClick(space.padsView(), pad));
    QVERIFY(!QApplication::activePopupWidget());
}

/** A pad that was dropped on a line has no number left, which counts as 0. */
void TestMenus::blankedPadHasMenu()
{
    Workspace space;
    QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 2, 1));
    const QModelIndex pad = space.pads()->index(2, 1);
    const std::unique_ptr<QMimeData> data(space.pads()->mimeData({pad}));
    const QRect other = space.padsView()->visualRect(space.pads()->index(5, 0));
    QVERIFY(Workspace::drop(data.get(), space.padsView(), {other.center().x(), other.bottom() + 1}));
    QCOMPARE(pad.data(ButtonRole), QVariant(""));

    QMenu *menu = space.rightClick(space.padsView(), pad);
    QVERIFY(menu);
    QVERIFY(Workspace::pick(menu, {"Remove"}));
    QCOMPARE(pad.data(ButtonRole), QVariant("-1"));
    QCOMPARE(pad.data(), QVariant("PAD 3"));
}

void TestMenus::padsMenuBesideTheCells_data()
{
    QTest::addColumn<QString>("pads");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("nothing assigned") << ""
                                      << "" << QList<int>{};
    QTest::newRow("nothing selected") << "0 1"
                                      << "" << QList<int>{3, 4};
    QTest::newRow("a pad selected") << "0 1"
                                    << "1,0" << QList<int>{3};
}

void TestMenus::padsMenuBesideTheCells()
{
    QFETCH(QString, pads);
    QFETCH(QString, selected);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    int button = 3;
    for (const QString &row : pads.split(' ', Qt::SkipEmptyParts))
        QVERIFY(space.putOnPad(button++, row.toInt()));
    Workspace::select(space.padsView(), selected);

    // The pads fill their view, so that no click finds the place.
    QVERIFY(!space.padsView()->indexAt(QPoint(-5, -5)).isValid());
    QVERIFY(space.call("customMenuRequestedvdj", QPoint(-5, -5)));
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), QStringList({"Remove"}));
    QVERIFY(Workspace::pick(menu, {"Remove"}));
    QCOMPARE(space.ticked(), ticked);
}

void TestMenus::removesPads_data()
{
    QTest::addColumn<QString>("before");    // selected before the menu opens
    QTest::addColumn<QString>("selected");  // selected while it is open; empty: as the click left it
    QTest::addColumn<QList<int>>("ticked"); // of 3, 4 and 5, which stand on 0,0 and 1,0 and 1,1
    QTest::newRow("the clicked pad") << ""
                                     << "" << QList<int>{4, 5};
    QTest::newRow("another pad was selected") << "1,0"
                                              << "" << QList<int>{4, 5};
    QTest::newRow("one pad at a time") << "0,0 1,0"
                                       << "" << QList<int>{4, 5};
    QTest::newRow("all that is selected") << ""
                                          << "0,0 1,0" << QList<int>{5};
    QTest::newRow("an empty pad among them") << ""
                                             << "0,0 4,0 1,1" << QList<int>{4};
}

void TestMenus::removesPads()
{
    QFETCH(QString, before);
    QFETCH(QString, selected);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 0, 0) && space.putOnPad(4, 1, 0) && space.putOnPad(5, 1, 1));
    Workspace::select(space.padsView(), before);
    QMenu *menu = space.rightClick(space.padsView(), space.pads()->index(0, 0));
    QVERIFY(menu);
    if (!selected.isEmpty())
        Workspace::select(space.padsView(), selected);
    QVERIFY(Workspace::pick(menu, {"Remove"}));
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(space.ticked(), ticked);
    QCOMPARE(space.pads()->index(0, 0).data(ButtonRole).toString(), QString("-1"));
    QCOMPARE(space.pads()->index(0, 0).data().toString(), QString("PAD 1"));
    QCOMPARE(Workspace::focused(), QString("vdjlistview"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::emptyKeyMenu_data()
{
    QTest::addColumn<QPoint>("cell"); // row, column
    QTest::newRow("pad key") << QPoint(2, 2);
    QTest::newRow("key of the bottom band") << QPoint(11, 9);
    QTest::newRow("key of the right band") << QPoint(4, 11);
    QTest::newRow("band that the device lacks") << QPoint(0, 4);
    QTest::newRow("corner") << QPoint(0, 0);
    QTest::newRow("gap") << QPoint(10, 10);
}

void TestMenus::emptyKeyMenu()
{
    QFETCH(QPoint, cell);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    const QModelIndex key = space.grid()->index(cell.x(), cell.y());
    QVERIFY(paint(space, key, "red", "green", "1")); // of no matter without a Live Button
    const QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), EmptyKeyMenu);
    QCOMPARE(entriesInSight(menu), QStringList({"[ ] Set as Switch"}));
    QCOMPARE(iconsOf(menu), QStringList({"none", "none"}));
    QCOMPARE(menu->styleSheet(), QString(MenuSheet));
    QCOMPARE(menu->parent(), &space.window());
    QVERIFY(menu->actions().constLast()->isEnabled());
}

void TestMenus::keyMenuOfDevice_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("palette"); // empty for a device that takes any colour
    QTest::newRow("AKAI APC Mini") << Akai << AkaiPalette;
    QTest::newRow("Mini MK3") << MiniMk3 << QStringList();
    QTest::newRow("Mini") << Mini << ClassicPalette;
    QTest::newRow("MKII") << Mk2 << QStringList();
    QTest::newRow("PRO") << Pro << QStringList();
    QTest::newRow("S") << S << ClassicPalette;
    QTest::newRow("Launchpad") << Classic << ClassicPalette;
}

void TestMenus::keyMenuOfDevice()
{
    QFETCH(int, device);
    QFETCH(QStringList, palette);

    Workspace space;
    QVERIFY2(startOnKeys(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(0, 4, 11)); // number 0 counts as a Live Button
    const QMenu *menu = space.rightClick(space.gridView(), space.grid()->index(4, 11));
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), KeyMenu);
    QCOMPARE(entriesInSight(menu), KeyMenu);
    for (const QString &icon : iconsOf(menu))
        QCOMPARE(icon, QString("none"));
    QCOMPARE(menu->styleSheet(), QString(MenuSheet));
    QCOMPARE(menu->parent(), &space.window());

    QStringList icons = {"none", "none"};
    for (const QString &color : palette)
        icons.append(QColor(color).name());
    for (const QString &title : {QString("Off Color"), QString("On Color")}) {
        const QMenu *colors = submenuOf(menu, title);
        QCOMPARE(entriesOf(colors), palette.isEmpty() ? RgbColors : colorEntries(palette, "default"));
        QCOMPARE(colors->styleSheet(), QString(MenuSheet));
        if (!palette.isEmpty())
            QCOMPARE(iconsOf(colors), icons);
        for (const QAction *action : colors->actions())
            QVERIFY(action->isEnabled());
    }
}

void TestMenus::keyMenuShowsTheKey_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("blink");
    QTest::addColumn<QString>("offTick");
    QTest::addColumn<QString>("onTick");
    QTest::addColumn<bool>("isBlinkTicked");
    QTest::newRow("nothing set") << Akai << ""
                                 << ""
                                 << "0"
                                 << "default"
                                 << "default" << false;
    QTest::newRow("off colour") << Akai << "red"
                                << ""
                                << ""
                                << "red"
                                << "default" << false;
    QTest::newRow("on colour") << Akai << ""
                               << "yellow"
                               << ""
                               << "default"
                               << "yellow" << false;
    QTest::newRow("first and last colour") << Akai << "black"
                                           << "yellow"
                                           << ""
                                           << "black"
                                           << "yellow" << false;
    QTest::newRow("the same twice") << Akai << "green"
                                    << "green"
                                    << ""
                                    << "green"
                                    << "green" << false;
    QTest::newRow("classic colours") << Classic << "#FFFF00"
                                     << "#000000"
                                     << ""
                                     << "#FFFF00"
                                     << "#000000" << false;
    QTest::newRow("in other letters") << Akai << "Red"
                                      << "GREEN"
                                      << ""
                                      << ""
                                      << "" << false;
    QTest::newRow("part of a colour's text") << Akai << "re"
                                             << "yellow "
                                             << ""
                                             << ""
                                             << "" << false;
    QTest::newRow("the word default") << Akai << "default"
                                      << " default"
                                      << ""
                                      << ""
                                      << "" << false;
    QTest::newRow("a blank") << Akai << " "
                             << " "
                             << ""
                             << ""
                             << "" << false;
    QTest::newRow("blinking") << Akai << ""
                              << ""
                              << "1"
                              << "default"
                              << "default" << true;
    QTest::newRow("blink: empty") << Akai << ""
                                  << ""
                                  << ""
                                  << "default"
                                  << "default" << false;
    QTest::newRow("blink: another number") << Akai << ""
                                           << ""
                                           << "2"
                                           << "default"
                                           << "default" << false;
    QTest::newRow("blink: a word") << Akai << ""
                                   << ""
                                   << "true"
                                   << "default"
                                   << "default" << false;
    QTest::newRow("blink: a blank behind") << Akai << ""
                                           << ""
                                           << "1 "
                                           << "default"
                                           << "default" << false;
}

void TestMenus::keyMenuShowsTheKey()
{
    QFETCH(int, device);
    QFETCH(QString, off);
    QFETCH(QString, on);
    QFETCH(QString, blink);
    QFETCH(QString, offTick);
    QFETCH(QString, onTick);
    QFETCH(bool, isBlinkTicked);

    Workspace space;
    QVERIFY2(startOnKeys(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3));
    const QModelIndex key = space.grid()->index(2, 2);
    QVERIFY(paint(space, key, off, on, blink));
    QVERIFY(paint(space, space.grid()->index(3, 3), "green", "black", blink == "1" ? "0" : "1"));
    Workspace::select(space.gridView(), "3,3 2,2"); // the menu is about the clicked key

    const QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    const QStringList palette = device == Akai ? AkaiPalette : ClassicPalette;
    QCOMPARE(entriesOf(submenuOf(menu, "Off Color")), colorEntries(palette, offTick));
    QCOMPARE(entriesOf(submenuOf(menu, "On Color")), colorEntries(palette, onTick));
    QCOMPARE(wordsFor(menu->actions().at(4)), QString(isBlinkTicked ? "[x] Blink" : "[ ] Blink"));
    QCOMPARE(wordsFor(menu->actions().constLast()), QString("[ ] Set as Switch"));
}

void TestMenus::rgbMenuShowsTheKey_data()
{
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("offIcon");
    QTest::addColumn<QString>("onIcon");
    QTest::newRow("both") << "#12ab34"
                          << "#fedcba"
                          << "#12ab34"
                          << "#fedcba";
    QTest::newRow("off colour alone") << "#12ab34"
                                      << ""
                                      << "#12ab34"
                                      << "#000000";
    QTest::newRow("on colour alone") << ""
                                     << "#12ab34"
                                     << "#000000"
                                     << "#12ab34";
    QTest::newRow("a palette's colours") << "red"
                                         << "#AA5500"
                                         << "#ff0000"
                                         << "#aa5500";
}

void TestMenus::rgbMenuShowsTheKey()
{
    QFETCH(QString, off);
    QFETCH(QString, on);
    QFETCH(QString, offIcon);
    QFETCH(QString, onIcon);

    Workspace space;
    QVERIFY2(startOnKeys(space, Mk2), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    const QModelIndex key = space.grid()->index(2, 2);
    QVERIFY(paint(space, key, off, on, ""));
    const QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    const QMenu *offColors = submenuOf(menu, "Off Color");
    const QMenu *onColors = submenuOf(menu, "On Color");
    QCOMPARE(entriesOf(offColors),
             QStringList({off.isEmpty() ? "✔default" : " default", "---", "Select ..."}));
    QCOMPARE(entriesOf(onColors), QStringList({on.isEmpty() ? "✔default" : " default", "---", "Select ..."}));
    QCOMPARE(iconsOf(offColors), QStringList({"none", "none", offIcon}));
    QCOMPARE(iconsOf(onColors), QStringList({"none", "none", onIcon}));
}

void TestMenus::colorOfAnotherDevice_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("color");
    QTest::addColumn<int>("to");
    QTest::newRow("picked freely, then the AKAI") << Mk2 << "#12ab34" << Akai;
    QTest::newRow("picked freely, then a Launchpad") << Pro << "#12ab34" << Mini;
    QTest::newRow("picked freely, a palette's colour in small letters") << Pro << "#aa5500" << Classic;
    QTest::newRow("the AKAI's red on a Launchpad") << Akai << "red" << S;
    QTest::newRow("a Launchpad's red on the AKAI") << Classic << "#FF0000" << Akai;
}

void TestMenus::colorOfAnotherDevice()
{
    QFETCH(int, from);
    QFETCH(QString, color);
    QFETCH(int, to);

    Workspace space;
    QVERIFY2(startOnKeys(space, from), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    for (const QString &title : {QString("Off Color"), QString("On Color")}) {
        if (from == Mk2 || from == Pro) {
            space.dialogs.expect(ExpectedDialogs::Color{"Choose a Color", Qt::black, QColor(color)});
            QVERIFY(space.pickOnKey(2, 2, {title, "Select ..."}));
        } else {
            QVERIFY(space.pickOnKey(2, 2, {title, " " + color}));
        }
    }
    QVERIFY(space.choose("devicescombo", to));

    const QModelIndex key = space.grid()->index(2, 2);
    const QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    const QStringList palette = to == Akai ? AkaiPalette : ClassicPalette;
    QCOMPARE(entriesOf(submenuOf(menu, "Off Color")), colorEntries(palette, ""));
    QCOMPARE(entriesOf(submenuOf(menu, "On Color")), colorEntries(palette, ""));
    QCOMPARE(key.data(OffColorRole).toString(), color);
    QCOMPARE(key.data(OnColorRole).toString(), color);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::keyMenuBesideTheCells_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("colors");
    QTest::newRow("palette device") << Akai << colorEntries(AkaiPalette, "default");
    QTest::newRow("RGB device") << Pro << RgbColors;
}

void TestMenus::keyMenuBesideTheCells()
{
    QFETCH(int, device);
    QFETCH(QStringList, colors);

    Workspace space;
    QVERIFY2(startOnKeys(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    QVERIFY(paint(space, space.grid()->index(2, 2), "red", "red", "1"));
    const QMenu *menu = space.rightClick(space.gridView(), besideTheCells(space.gridView()));
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), KeyMenu);
    QCOMPARE(entriesOf(submenuOf(menu, "Off Color")), colors);
    QCOMPARE(entriesOf(submenuOf(menu, "On Color")), colors);
}

void TestMenus::keyMenuWithoutDevice_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::newRow("Remove") << QStringList{"Remove"};
    QTest::newRow("default off colour") << QStringList{"Off Color", " default"};
    QTest::newRow("default on colour") << QStringList{"On Color", " default"};
    QTest::newRow("any off colour") << QStringList{"Off Color", "Select ..."};
    QTest::newRow("any on colour") << QStringList{"On Color", "Select ..."};
    QTest::newRow("Blink") << QStringList{"Blink"};
    QTest::newRow("Set as Switch") << QStringList{"Set as Switch"};
}

void TestMenus::keyMenuWithoutDevice()
{
    QFETCH(QStringList, path);

    Workspace space;
    QVERIFY2(startOnKeys(space, Pro), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    const QModelIndex key = space.grid()->index(2, 2);
    QVERIFY(paint(space, key, "#ff0000", "#ff0000", "1"));
    space.find<QComboBox>("devicescombo")->setCurrentIndex(-1);

    // A device that says nothing of its colours takes any.
    QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    for (const QString &title : {QString("Off Color"), QString("On Color")})
        QCOMPARE(entriesOf(submenuOf(menu, title)), QStringList({" default", "---", "Select ..."}));
    if (path.constLast() == "Select ...")
        space.dialogs.expect(ExpectedDialogs::Color{"Choose a Color", Qt::red, Qt::green});
    const QMap<int, QString> before = valuesOf(key);
    QVERIFY(Workspace::pick(menu, path));
    QVERIFY(valuesOf(key) != before);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::choosesColor_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("before"); // off and on colour of the clicked key
    QTest::addColumn<QString>("stored");
    const auto row = [](const char *name, int device, const QString &entry, const QString &before,
                        const QString &stored) {
        QTest::addRow("off: %s", name)
            << device << QStringList{"Off Color", entry} << int(OffColorRole) << before << stored;
        QTest::addRow("on: %s", name)
            << device << QStringList{"On Color", entry} << int(OnColorRole) << before << stored;
    };
    row("first colour", Akai, " black", "", "black");
    row("middle colour", Akai, " red", "green", "red");
    row("last colour", Akai, " yellow", "", "yellow");
    row("the key's own colour", Akai, "✔green", "green", "green");
    row("default", Akai, " default", "green", "");
    row("default that is set already", Akai, "✔default", "", "");
    row("classic, first colour", Classic, " #000000", "#FFFF00", "#000000");
    row("classic, mixed colour", Mini, " #AA5500", "", "#AA5500");
    row("classic, last colour", S, " #FFFF00", "", "#FFFF00");
    row("classic, default", Classic, " default", "#00AA00", "");
    row("RGB device, default", Mk2, " default", "#12ab34", "");
}

void TestMenus::choosesColor()
{
    QFETCH(int, device);
    QFETCH(QStringList, path);
    QFETCH(int, role);
    QFETCH(QString, before);
    QFETCH(QString, stored);

    Workspace space;
    QVERIFY2(startOnKeys(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3) && space.putOnKey(5, 5, 5));
    QVERIFY(paint(space, space.grid()->index(2, 2), before, before, "1"));
    QVERIFY(paint(space, space.grid()->index(3, 3), "#123456", "#abcdef", ""));
    QVERIFY(paint(space, space.grid()->index(5, 5), "#123456", "#abcdef", "1"));
    Workspace::select(space.gridView(), "2,2 3,3 4,4");

    QVector<QMap<int, QString>> expected;
    for (int i = 2; i <= 5; ++i) {
        expected.append(valuesOf(space.grid()->index(i, i)));
        if (i < 5)
            expected.last().insert(role, stored);
    }
    QVERIFY(space.pickOnKey(2, 2, path));
    for (int i = 2; i <= 5; ++i)
        QCOMPARE(valuesOf(space.grid()->index(i, i)), expected.at(i - 2));
    QCOMPARE(space.ticked(), QList<int>({3, 4, 5}));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::choosesColorBesideTheCells()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QMenu *menu = space.rightClick(space.gridView(), besideTheCells(space.gridView()));
    QVERIFY(menu);
    Workspace::select(space.gridView(), "2,2 4,4"); // a click beside the cells may have cleared it
    QVERIFY(Workspace::pick(menu, {"On Color", " yellow"}));
    QCOMPARE(space.grid()->index(2, 2).data(OnColorRole).toString(), QString("yellow"));
    QCOMPARE(space.grid()->index(4, 4).data(OnColorRole).toString(), QString("yellow"));
    QCOMPARE(space.grid()->index(4, 4).data(OffColorRole).toString(), QString());
}

void TestMenus::colorByNumber_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("stored");
    for (const QByteArray slot : {"colorpadchange", "coloronpadchange"}) {
        const auto row = [&slot](const char *name, int device, int number, const char *stored) {
            QTest::addRow("%s, %s", slot.constData(), name) << slot << device << number << stored;
        };
        row("AKAI, 0", Akai, 0, "");
        row("AKAI, 1", Akai, 1, "black");
        row("AKAI, last", Akai, 4, "yellow");
        row("AKAI, beyond", Akai, 5, "");
        row("AKAI, far beyond", Akai, 999, "");
        row("AKAI, negative", Akai, -1, "");
        row("Launchpad, 1", Classic, 1, "#000000");
        row("Launchpad, 9", Classic, 9, "#AA5500");
        row("Launchpad, last", Classic, 16, "#FFFF00");
        row("Launchpad, beyond", Classic, 17, "");
        row("MKII, 0", Mk2, 0, "");
        row("MKII, 1", Mk2, 1, "");
        row("MKII, 2", Mk2, 2, "");
        row("no device, 0", -1, 0, "");
        row("no device, 1", -1, 1, "");
        row("no device, 2", -1, 2, "");
    }
}

void TestMenus::colorByNumber()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, device);
    QFETCH(int, number);
    QFETCH(QString, stored);

    Workspace space;
    QVERIFY2(startOnKeys(space, Pro), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    space.find<QComboBox>("devicescombo")->setCurrentIndex(device);
    const bool isOff = slot == "colorpadchange";
    for (const QPoint cell : {QPoint(2, 2), QPoint(4, 4), QPoint(5, 5)})
        QVERIFY(paint(space, space.grid()->index(cell.x(), cell.y()), "#123456", "#abcdef", ""));
    Workspace::select(space.gridView(), "2,2 4,4");

    QVERIFY(space.call(slot, number));
    for (const int i : {2, 4}) {
        const QModelIndex key = space.grid()->index(i, i);
        QCOMPARE(key.data(isOff ? OffColorRole : OnColorRole).toString(), stored);
        QCOMPARE(key.data(isOff ? OnColorRole : OffColorRole).toString(),
                 QString(isOff ? "#abcdef" : "#123456"));
    }
    QCOMPARE(space.grid()->index(5, 5).data(OffColorRole).toString(), QString("#123456"));
    QCOMPARE(space.grid()->index(5, 5).data(OnColorRole).toString(), QString("#abcdef"));
}

void TestMenus::asksForColor_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("before"); // the clicked key's colour of that kind
    QTest::addColumn<QColor>("initial");
    QTest::addColumn<QColor>("answer");
    QTest::addColumn<QString>("stored"); // unused where the dialog is cancelled
    for (const char *title : {"Off Color", "On Color"}) {
        const auto row = [title](const char *name, const char *before, const QColor &initial,
                                 const QColor &answer, const char *stored) {
            QTest::addRow("%s: %s", title, name) << title << before << initial << answer << stored;
        };
        row("none so far", "", Qt::black, QColor(10, 11, 12), "#0a0b0c");
        row("a number so far", "#12ab34", QColor(0x12, 0xab, 0x34), QColor(0xab, 0xcd, 0xef), "#abcdef");
        row("a name so far", "red", Qt::red, Qt::green, "#00ff00");
        row("capital letters so far", "#AA5500", QColor(0xaa, 0x55, 0), Qt::white, "#ffffff");
        row("no colour at all so far", "nonsense", Qt::black, Qt::blue, "#0000ff");
        row("black", "#12ab34", QColor(0x12, 0xab, 0x34), Qt::black, "#000000");
        row("OK at once", "#FF0000", Qt::red, Qt::red, "#ff0000");
        row("cancelled", "#12ab34", QColor(0x12, 0xab, 0x34), QColor(), "");
        row("cancelled, none so far", "", Qt::black, QColor(), "");
    }
}

void TestMenus::asksForColor()
{
    QFETCH(QString, title);
    QFETCH(QString, before);
    QFETCH(QColor, initial);
    QFETCH(QColor, answer);
    QFETCH(QString, stored);

    Workspace space;
    QVERIFY2(startOnKeys(space, Mk2), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3) && space.putOnKey(5, 5, 5));
    const int role = title == "Off Color" ? OffColorRole : OnColorRole;
    for (const int i : {2, 3, 4, 5})
        QVERIFY(paint(space, space.grid()->index(i, i), "#123456", "#654321", i == 3 ? "1" : ""));
    QVERIFY(space.grid()->setData(space.grid()->index(2, 2), before, role));
    Workspace::select(space.gridView(), "2,2 3,3 4,4");

    QVector<QMap<int, QString>> expected;
    for (int i = 2; i <= 5; ++i) {
        expected.append(valuesOf(space.grid()->index(i, i)));
        if (i < 5 && answer.isValid())
            expected.last().insert(role, stored);
    }
    space.dialogs.expect(ExpectedDialogs::Color{"Choose a Color", initial, answer});
    QVERIFY(space.pickOnKey(2, 2, {title, "Select ..."}));
    for (int i = 2; i <= 5; ++i)
        QCOMPARE(valuesOf(space.grid()->index(i, i)), expected.at(i - 2));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::asksForColorBySlot_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QColor>("initial");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::newRow("off") << QByteArray("rgbpadchange") << QColor(0x12, 0xab, 0x34) << "#010203"
                         << "#654321";
    QTest::newRow("on") << QByteArray("rgbonpadchange") << QColor(0x43, 0xba, 0x21) << "#123456"
                        << "#010203";
}

void TestMenus::asksForColorBySlot()
{
    QFETCH(QByteArray, slot);
    QFETCH(QColor, initial);
    QFETCH(QString, off);
    QFETCH(QString, on);

    // The key that was clicked last starts the dialog; what is selected takes the answer.
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    const QModelIndex clicked = space.grid()->index(2, 2);
    const QModelIndex selected = space.grid()->index(4, 4);
    QVERIFY(paint(space, clicked, "#12ab34", "#43ba21", ""));
    QVERIFY(paint(space, selected, "#123456", "#654321", ""));
    QMenu *menu = space.rightClick(space.gridView(), clicked);
    QVERIFY(menu);
    menu->close();
    Workspace::select(space.gridView(), "4,4");
    space.dialogs.expect(ExpectedDialogs::Color{"Choose a Color", initial, QColor(1, 2, 3)});
    QVERIFY(space.call(slot));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(selected.data(OffColorRole).toString(), off);
    QCOMPARE(selected.data(OnColorRole).toString(), on);
    QCOMPARE(clicked.data(OffColorRole).toString(), QString("#12ab34"));
    QCOMPARE(clicked.data(OnColorRole).toString(), QString("#43ba21"));
}

void TestMenus::asksForColorWithoutMenu_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("isBesideTheCells");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    for (const bool isBeside : {false, true}) {
        const char *where = isBeside ? "beside the cells" : "no menu yet";
        QTest::addRow("off, %s", where) << QByteArray("rgbpadchange") << isBeside << "#010203"
                                        << "#00ff00";
        QTest::addRow("on, %s", where) << QByteArray("rgbonpadchange") << isBeside << "#ff0000"
                                       << "#010203";
    }
}

void TestMenus::asksForColorWithoutMenu()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, isBesideTheCells);
    QFETCH(QString, off);
    QFETCH(QString, on);

    Workspace space;
    QVERIFY2(startOnKeys(space, Pro), qPrintable(space.dialogs.faults()));
    const QModelIndex key = space.grid()->index(2, 2);
    QVERIFY(paint(space, key, "#ff0000", "#00ff00", ""));
    if (isBesideTheCells) {
        QMenu *menu = space.rightClick(space.gridView(), besideTheCells(space.gridView()));
        QVERIFY(menu);
        menu->close();
    }
    Workspace::select(space.gridView(), "2,2");
    space.dialogs.expect(ExpectedDialogs::Color{"Choose a Color", Qt::black, QColor(1, 2, 3)});
    QVERIFY(space.call(slot));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(key.data(OffColorRole).toString(), off);
    QCOMPARE(key.data(OnColorRole).toString(), on);
}

void TestMenus::blinks_data()
{
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("after");
    QTest::newRow("all rest") << "0"
                              << "0"
                              << "1";
    QTest::newRow("all blink") << "1"
                               << "1"
                               << "";
    QTest::newRow("the clicked one blinks") << "1"
                                            << "0"
                                            << "";
    QTest::newRow("the clicked one rests") << "0"
                                           << "1"
                                           << "1";
    QTest::newRow("the clicked one is empty") << ""
                                              << "1"
                                              << "1";
    QTest::newRow("the clicked one has another text") << "true"
                                                      << ""
                                                      << "1";
}

void TestMenus::blinks()
{
    QFETCH(QString, clicked);
    QFETCH(QString, other);
    QFETCH(QString, after);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3) && space.putOnKey(5, 5, 5));
    for (const int i : {2, 3, 4, 5})
        QVERIFY(paint(space, space.grid()->index(i, i), "red", "green", i == 2 ? clicked : other));
    Workspace::select(space.gridView(), "3,3 4,4 2,2");

    QVector<QMap<int, QString>> expected;
    for (int i = 2; i <= 5; ++i) {
        expected.append(valuesOf(space.grid()->index(i, i)));
        if (i < 5)
            expected.last().insert(BlinkRole, after);
    }
    QVERIFY(space.pickOnKey(2, 2, {"Blink"}));
    for (int i = 2; i <= 5; ++i)
        QCOMPARE(valuesOf(space.grid()->index(i, i)), expected.at(i - 2));
}

void TestMenus::blinksBesideTheCells()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    for (const int i : {2, 3})
        QVERIFY(paint(space, space.grid()->index(i, i), "", "", i == 2 ? "1" : "0"));
    QMenu *menu = space.rightClick(space.gridView(), besideTheCells(space.gridView()));
    QVERIFY(menu);
    Workspace::select(space.gridView(), "2,2 3,3"); // a click beside the cells may have cleared it
    QVERIFY(Workspace::pick(menu, {"Blink"}));
    QCOMPARE(space.grid()->index(2, 2).data(BlinkRole).toString(), QString("1"));
    QCOMPARE(space.grid()->index(3, 3).data(BlinkRole).toString(), QString("1"));
}

void TestMenus::removesKeys_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QList<int>>("ticked"); // of 3, 4 and 5, which stand on 2,2 and 3,3 and 5,5
    QTest::newRow("the clicked key alone") << "" << QList<int>{4, 5};
    QTest::newRow("another key was selected") << "3,3" << QList<int>{4, 5};
    QTest::newRow("two keys") << "2,2 3,3" << QList<int>{5};
    QTest::newRow("an empty key among them") << "2,2 4,4 5,5" << QList<int>{4};
}

void TestMenus::removesKeys()
{
    QFETCH(QString, selected);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3) && space.putOnKey(5, 5, 5));
    const QModelIndex key = space.grid()->index(2, 2);
    QVERIFY(paint(space, key, "red", "green", "1"));
    Workspace::select(space.gridView(), selected);
    QVERIFY(space.pickOnKey(2, 2, {"Remove"}));
    QCOMPARE(space.ticked(), ticked);
    QCOMPARE(lacksOfRest(space, {2, 2}, "PAD 1"), QString());
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));

    // Its colours wait for the next Live Button's menu.
    QCOMPARE(key.data(OffColorRole).toString(), QString("red"));
    QCOMPARE(key.data(OnColorRole).toString(), QString("green"));
    QCOMPARE(key.data(BlinkRole).toString(), QString("1"));
}

void TestMenus::menuOfALeftoverIsForNoOtherKey_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::newRow("Remove") << QStringList{"Remove"};
    QTest::newRow("a color") << QStringList{"Off Color", " red"};
    QTest::newRow("Blink") << QStringList{"Blink"};
}

void TestMenus::menuOfALeftoverIsForNoOtherKey()
{
    QFETCH(QStringList, path);

    Workspace space;
    QVERIFY2(startOnKeys(space, MiniMk3), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 0, 2) && space.putOnKey(4, 2, 2));
    QVERIFY(space.choose("devicescombo", Akai)); // has no key there
    const QStringList before = space.snapshot();
    Workspace::select(space.gridView(), "2,2");
    QVERIFY(space.pickOnKey(0, 2, path));
    QCOMPARE(space.snapshot(), before);
}

void TestMenus::defaultColors_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::newRow("AKAI APC Mini") << Akai << "yellow"
                                   << "green";
    QTest::newRow("Mini MK3") << MiniMk3 << ""
                              << "";
    QTest::newRow("Mini") << Mini << "#000000"
                          << "#FF0000";
    QTest::newRow("MKII") << Mk2 << ""
                          << "";
    QTest::newRow("PRO") << Pro << ""
                         << "";
    QTest::newRow("S") << S << "#000000"
                       << "#FF0000";
    QTest::newRow("Launchpad") << Classic << "#000000"
                               << "#FF0000";
    QTest::newRow("below the list") << -1 << ""
                                    << "";
    QTest::newRow("beyond the list") << 7 << ""
                                     << "";
    QTest::newRow("far beyond the list") << 999 << ""
                                         << "";
}

void TestMenus::defaultColors()
{
    QFETCH(int, device);
    QFETCH(QString, off);
    QFETCH(QString, on);

    Workspace space;
    for (const int selected : {Pro, Akai}) { // which device is selected does not matter
        space.find<QComboBox>("devicescombo")->setCurrentIndex(selected);
        QCOMPARE(space.ask<QString>("getdeviceoffcolor", device), off);
        QCOMPARE(space.ask<QString>("getdeviceoncolor", device), on);
    }
}

void TestMenus::setsSwitch_data()
{
    QTest::addColumn<QPoint>("cell"); // row, column
    QTest::addColumn<bool>("isAssigned");
    QTest::newRow("empty key") << QPoint(4, 4) << false;
    QTest::newRow("key with a Live Button") << QPoint(4, 4) << true;
    QTest::newRow("empty key of a band") << QPoint(11, 2) << false;
    QTest::newRow("key of a band with a Live Button") << QPoint(4, 11) << true;
    QTest::newRow("band that the device lacks") << QPoint(0, 2) << false;
    QTest::newRow("Live Button where the device lacks a key") << QPoint(4, 0) << true;
    QTest::newRow("first cell of all") << QPoint(0, 0) << false;
    QTest::newRow("last cell of all") << QPoint(11, 11) << false;
    QTest::newRow("gap") << QPoint(5, 10) << false;
}

void TestMenus::setsSwitch()
{
    QFETCH(QPoint, cell);
    QFETCH(bool, isAssigned);

    Workspace space;
    QVERIFY2(startOnKeys(space, Pro), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(4, 9, 9));
    if (isAssigned)
        QVERIFY(space.putOnKey(3, cell.x(), cell.y()));
    QVERIFY(space.choose("devicescombo", Akai));
    const QModelIndex key = space.grid()->index(cell.x(), cell.y());
    QVERIFY(paint(space, key, "red", "green", "1"));

    const QMenu *menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu).size(), isAssigned ? KeyMenu.size() : EmptyKeyMenu.size());
    QApplication::activePopupWidget()->close();
    QVERIFY(toggleSwitch(space, cell));
    QCOMPARE(lacksOfSwitch(space, cell), QString());
    QCOMPARE(key.data(OffColorRole).toString(), QString("red"));
    QCOMPARE(key.data(OnColorRole).toString(), QString("green"));
    QCOMPARE(key.data(BlinkRole).toString(), QString("1"));
    QCOMPARE(space.ticked(), QList<int>({4}));
    QCOMPARE(space.grid()->index(9, 9).data(ButtonRole).toString(), QString("4"));

    menu = space.rightClick(space.gridView(), key);
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), QStringList({"---", "[x] Set as Switch"}));
    QApplication::activePopupWidget()->close();
    QCOMPARE(switches(space), QStringList({QString("%1,%2").arg(cell.x()).arg(cell.y())}));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestMenus::switchLeavesOtherCopies()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(3, 5, 11));
    QVERIFY(toggleSwitch(space, {2, 2}));
    QCOMPARE(space.ticked(), QList<int>({3}));
    QVERIFY(toggleSwitch(space, {5, 11}));
    QCOMPARE(space.ticked(), QList<int>());
}

void TestMenus::unticksSwitch_data()
{
    QTest::addColumn<QPoint>("cell"); // row, column
    QTest::addColumn<QString>("label");
    QTest::newRow("pad key") << QPoint(4, 4) << "PAD 19";
    QTest::newRow("bottom band") << QPoint(11, 9) << "BOTTOM 8";
    QTest::newRow("right band") << QPoint(2, 11) << "RIGHT 1";
    QTest::newRow("top band, which the device lacks") << QPoint(0, 2) << "TOP 1";
    QTest::newRow("left band, which the device lacks") << QPoint(9, 0) << "LEFT 8";
    QTest::newRow("corner") << QPoint(0, 0) << "";
    QTest::newRow("gap") << QPoint(10, 4) << "";
}

void TestMenus::unticksSwitch()
{
    QFETCH(QPoint, cell);
    QFETCH(QString, label);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    const QModelIndex key = space.grid()->index(cell.x(), cell.y());
    QVERIFY(paint(space, key, "red", "green", "1"));
    QVERIFY(toggleSwitch(space, cell));
    QVERIFY(toggleSwitch(space, cell));
    QCOMPARE(lacksOfRest(space, cell, label), QString());
    QCOMPARE(switches(space), QStringList());
    QCOMPARE(key.data(OffColorRole).toString(), QString("red"));
    QCOMPARE(key.data(OnColorRole).toString(), QString("green"));
    QCOMPARE(key.data(BlinkRole).toString(), QString("1"));

    // And it can be set again.
    QVERIFY(toggleSwitch(space, cell));
    QCOMPARE(lacksOfSwitch(space, cell), QString());
}

void TestMenus::movesSwitch_data()
{
    QTest::addColumn<QPoint>("from"); // row, column
    QTest::addColumn<QString>("label");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<bool>("isAssigned");
    QTest::newRow("to an empty key") << QPoint(2, 2) << "PAD 1" << QPoint(9, 9) << false;
    QTest::newRow("to a key with a Live Button") << QPoint(2, 2) << "PAD 1" << QPoint(9, 9) << true;
    QTest::newRow("along a row") << QPoint(4, 4) << "PAD 19" << QPoint(4, 5) << false;
    QTest::newRow("down a column") << QPoint(4, 4) << "PAD 19" << QPoint(5, 4) << false;
    QTest::newRow("row and column changed over") << QPoint(4, 7) << "PAD 22" << QPoint(7, 4) << false;
    QTest::newRow("from a band to a band") << QPoint(11, 2) << "BOTTOM 1" << QPoint(2, 11) << false;
    QTest::newRow("from where the device lacks a key") << QPoint(0, 5) << "TOP 4" << QPoint(5, 5) << true;
    QTest::newRow("to where the device lacks a key") << QPoint(5, 5) << "PAD 28" << QPoint(0, 5) << false;
    QTest::newRow("from the first cell of all") << QPoint(0, 0) << "" << QPoint(2, 2) << false;
}

void TestMenus::movesSwitch()
{
    QFETCH(QPoint, from);
    QFETCH(QString, label);
    QFETCH(QPoint, to);
    QFETCH(bool, isAssigned);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    if (isAssigned)
        QVERIFY(space.putOnKey(3, to.x(), to.y()));
    QVERIFY(space.putOnKey(4, 8, 8));
    QVERIFY(toggleSwitch(space, from));
    QVERIFY(toggleSwitch(space, to));
    QCOMPARE(lacksOfRest(space, from, label), QString());
    QCOMPARE(lacksOfSwitch(space, to), QString());
    QCOMPARE(switches(space), QStringList({QString("%1,%2").arg(to.x()).arg(to.y())}));
    QCOMPARE(space.ticked(), QList<int>({4}));

    QVERIFY(toggleSwitch(space, from));
    QCOMPARE(lacksOfSwitch(space, from), QString());
    QCOMPARE(space.grid()->index(to.x(), to.y()).data(AvailableRole).toString(), QString("1"));
}

void TestMenus::switchIsOfTheClickedKeyAlone()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3) && space.putOnKey(5, 5, 5));
    const QMap<int, QString> assigned = valuesOf(space.grid()->index(3, 3));
    const QMap<int, QString> empty = valuesOf(space.grid()->index(4, 4));
    Workspace::select(space.gridView(), "3,3 4,4 2,2");
    QVERIFY(toggleSwitch(space, {2, 2}));
    QCOMPARE(lacksOfSwitch(space, {2, 2}), QString());
    QCOMPARE(valuesOf(space.grid()->index(3, 3)), assigned);
    QCOMPARE(valuesOf(space.grid()->index(4, 4)), empty);
    QCOMPARE(space.ticked(), QList<int>({4, 5}));

    // The Switch cannot be selected, so others stay so when it is clicked.
    Workspace::select(space.gridView(), "3,3 4,4");
    QVERIFY(toggleSwitch(space, {2, 2}));
    QCOMPARE(lacksOfRest(space, {2, 2}, "PAD 1"), QString());
    QCOMPARE(valuesOf(space.grid()->index(3, 3)), assigned);
    QCOMPARE(space.ticked(), QList<int>({4, 5}));
}

void TestMenus::switchTakesNoDrops()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    QVERIFY(toggleSwitch(space, {4, 4}));
    const QModelIndex key = space.grid()->index(4, 4);
    QVERIFY(!space.putOnKey(5, 4, 4));
    QVERIFY(!space.drag(space.grid()->index(2, 2), space.gridView(), key));
    QCOMPARE(key.flags(), Qt::ItemFlags(Qt::ItemNeverHasChildren) & key.flags());
    QCOMPARE(lacksOfSwitch(space, {4, 4}), QString());
    QCOMPARE(space.ticked(), QList<int>({3}));

    QVERIFY(toggleSwitch(space, {4, 4}));
    QVERIFY(space.putOnKey(5, 4, 4));
}

void TestMenus::switchBesideTheCells()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    const QStringList before = space.snapshot();
    const QPoint beside = besideTheCells(space.gridView());
    QMenu *menu = space.rightClick(space.gridView(), beside);
    QVERIFY(menu && Workspace::pick(menu, {"Set as Switch"}));
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(switches(space), QStringList());

    // It moves the Switch to no cell at all.
    QVERIFY(toggleSwitch(space, {4, 4}));
    menu = space.rightClick(space.gridView(), beside);
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), KeyMenu);
    QVERIFY(Workspace::pick(menu, {"Set as Switch"}));
    QCOMPARE(lacksOfRest(space, {4, 4}, "PAD 19"), QString());
    QCOMPARE(switches(space), QStringList());
}

void TestMenus::switchStaysMarked_data()
{
    QTest::addColumn<QByteArray>("act");
    QTest::addColumn<QString>("available");
    QTest::newRow("Clean of the keys") << QByteArray("cleanmidi_button") << "0";
    QTest::newRow("New Project") << QByteArray("actionNew_2") << "0";
    QTest::newRow("Remove") << QByteArray("ondeleteaction_triggered") << "1";
}

void TestMenus::switchStaysMarked()
{
    QFETCH(QByteArray, act);
    QFETCH(QString, available);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(toggleSwitch(space, {0, 4}));
    if (act == "ondeleteaction_triggered") {
        QVERIFY(space.choose("devicescombo", Pro)); // has the key, so that it can be selected again
        Workspace::select(space.gridView(), "0,4");
    }
    if (act.endsWith("_button"))
        QVERIFY(space.click(act));
    else if (act.startsWith("action"))
        space.trigger(act);
    else
        QVERIFY(space.call(act));

    const QModelIndex key = space.grid()->index(0, 4);
    QCOMPARE(key.data().toString(), QString("TOP 3"));
    QCOMPARE(key.data(DisplayNameRole).toString(), QString("TOP 3"));
    QCOMPARE(key.data(AvailableRole).toString(), available);
    QCOMPARE(switches(space), QStringList({"0,4"}));

    // So a click takes the role away instead of giving it.
    QVERIFY(toggleSwitch(space, {0, 4}));
    QCOMPARE(key.data().toString(), QString("TOP 3"));
    QCOMPARE(switches(space), QStringList());
}

void TestMenus::switchIsForgottenByAShow_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("button") << true;
    QTest::newRow("slot") << false;
}

void TestMenus::switchIsForgottenByAShow()
{
    QFETCH(bool, byButton);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(toggleSwitch(space, {4, 4}));
    if (byButton)
        QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    else
        QVERIFY(space.ask<bool>("loadshowname", space.home() + "/Show/Live/live.ini"));
    QCOMPARE(switches(space), QStringList());
    QCOMPARE(space.leftOnGrid(), QString());

    // The next one is a first one: nothing is cleared for it.
    QVERIFY(space.putOnKey(3, 4, 4));
    QVERIFY(toggleSwitch(space, {5, 5}));
    QCOMPARE(space.ticked(), QList<int>({3}));
    QCOMPARE(switches(space), QStringList({"5,5"}));
}

void TestMenus::switchAndDevices()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(toggleSwitch(space, {11, 4}));
    const QModelIndex key = space.grid()->index(11, 4);
    QVERIFY(space.choose("devicescombo", Pro)); // has the key
    QCOMPARE(key.data(AvailableRole).toString(), QString("1"));
    QCOMPARE(key.data().toString(), QString("SWITCH"));
    QCOMPARE(key.data(DisplayNameRole).toString(), QString("SWITCH"));
    QCOMPARE(key.data(Qt::ForegroundRole).value<QColor>(), QColor("green"));
    QCOMPARE(switches(space), QStringList({"11,4"}));
    QVERIFY(space.choose("devicescombo", Classic)); // lacks it
    QCOMPARE(key.data(AvailableRole).toString(), QString("0"));
    QCOMPARE(lacksOfSwitch(space, {11, 4}), QString());
    QCOMPARE(switches(space), QStringList({"11,4"}));
}

void TestMenus::switchThatTookALiveButton()
{
    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(toggleSwitch(space, {4, 4}));
    QVERIFY(space.choose("devicescombo", Pro));
    QVERIFY(space.putOnKey(3, 4, 4));
    const QMenu *menu = space.rightClick(space.gridView(), space.grid()->index(4, 4));
    QVERIFY(menu);
    QCOMPARE(entriesOf(menu), KeyMenu.mid(0, 6) + QStringList("[x] Set as Switch"));
    QApplication::activePopupWidget()->close();

    // Moving the Switch away clears the key that it leaves.
    QVERIFY(toggleSwitch(space, {5, 5}));
    QCOMPARE(lacksOfRest(space, {4, 4}, "PAD 19"), QString());
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(switches(space), QStringList({"5,5"}));
}

void TestMenus::focusAfterSwitch_data()
{
    QTest::addColumn<QString>("before"); // keys that were set as Switch, as "row,column"
    QTest::newRow("set") << "";
    QTest::newRow("unticked") << "4,4";
    QTest::newRow("moved") << "5,5";
}

void TestMenus::focusAfterSwitch()
{
    QFETCH(QString, before);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    if (!before.isEmpty())
        QVERIFY(toggleSwitch(space, {before.section(',', 0, 0).toInt(), before.section(',', 1).toInt()}));
    QMenu *menu = space.rightClick(space.gridView(), space.grid()->index(4, 4));
    QVERIFY(menu);
    menu->close();
    space.activate();
    FocusLog log;
    QVERIFY(space.call("ontoggleaction_triggered"));
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
    QVERIFY(log.taken.size() >= 2);
    const QList<QPair<QString, Qt::FocusReason>> last = log.taken.mid(log.taken.size() - 2);
    QCOMPARE(last.at(0), qMakePair(QString("dmxlistview"), Qt::OtherFocusReason));
    QCOMPARE(last.at(1), qMakePair(QString("tablecontroller"), Qt::OtherFocusReason));
}

void TestMenus::opensAtTheMouse_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QPoint>("point"); // in the viewport
    QTest::newRow("pad") << false << QPoint(20, 10);
    QTest::newRow("pad, near its edge") << false << QPoint(140, 25);
    QTest::newRow("key") << true << QPoint(120, 50);
    QTest::newRow("empty key") << true << QPoint(230, 80);
}

void TestMenus::opensAtTheMouse()
{
    QFETCH(bool, onKeys);
    QFETCH(QPoint, point);

    Workspace space;
    if (onKeys) {
        QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnKey(3, 2, 2));
    } else {
        QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnPad(3, 0));
    }
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    view->horizontalHeader()->show(); // else the table and its viewport begin at the same place
    QTRY_VERIFY(view->viewport()->y() > 5);
    for (const QPoint corner : {QPoint(0, 0), QPoint(30, 60)}) {
        space.window().move(corner);
        QMenu *menu = space.rightClick(view, point);
        QVERIFY(menu);
        QCOMPARE(menu->pos(), view->viewport()->mapToGlobal(point));
        menu->close();

        QVERIFY(space.call(onKeys ? "customMenuRequested" : "customMenuRequestedvdj", point));
        QVERIFY(QApplication::activePopupWidget());
        QCOMPARE(QApplication::activePopupWidget()->pos(), view->viewport()->mapToGlobal(point));
        QApplication::activePopupWidget()->close();
    }
}

void TestMenus::opensByTheMouse_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<bool>("isAssigned");
    QTest::newRow("pad") << false << true;
    QTest::newRow("empty pad") << false << false;
    QTest::newRow("key") << true << true;
    QTest::newRow("empty key") << true << false;
}

void TestMenus::opensByTheMouse()
{
    QFETCH(bool, onKeys);
    QFETCH(bool, isAssigned);

    Workspace space;
    if (onKeys) {
        QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
        QVERIFY(!isAssigned || space.putOnKey(3, 2, 2));
    } else {
        QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
        QVERIFY(!isAssigned || space.putOnPad(3, 0));
    }

    // The press goes to the window, as the desktop sends it; the rest is the library's.
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    const QModelIndex cell = view->model()->index(onKeys ? 2 : 0, onKeys ? 2 : 0);
    const QPoint point = view->visualRect(cell).topLeft() + QPoint(7, 9);
    QWindow *window = space.window().windowHandle();
    QVERIFY(window);
    QTest::mousePress(window, Qt::RightButton, {}, view->viewport()->mapTo(&space.window(), point));
    QTest::mouseRelease(window, Qt::RightButton, {}, view->viewport()->mapTo(&space.window(), point));

    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QCOMPARE(menu != nullptr, onKeys || isAssigned);
    if (!menu)
        return;
    QCOMPARE(menu->pos(), view->viewport()->mapToGlobal(point));
    QVERIFY(view->selectionModel()->isSelected(cell));
    if (isAssigned) {
        QVERIFY(Workspace::pick(menu, {"Remove"}));
        QCOMPARE(cell.data(ButtonRole).toString(), QString("-1"));
        QCOMPARE(space.ticked(), QList<int>());
    } else {
        QCOMPARE(entriesOf(menu), EmptyKeyMenu);
    }
}

void TestMenus::closesByEscape_data()
{
    QTest::addColumn<QString>("where");
    for (const char *where : {"pad", "key", "empty key", "submenu"})
        QTest::newRow(where) << where;
}

void TestMenus::closesByEscape()
{
    QFETCH(QString, where);

    Workspace space;
    if (where == "pad") {
        QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnPad(3, 0));
    } else {
        QVERIFY2(startOnKeys(space, Classic), qPrintable(space.dialogs.faults()));
        QVERIFY(where == "empty key" || space.putOnKey(3, 2, 2));
    }
    const QStringList before = space.snapshot();
    const int children = childrenOf(space);
    QTableView *view = where == "pad" ? space.padsView() : space.gridView();
    const QModelIndex cell = view->model()->index(where == "pad" ? 0 : 2, where == "pad" ? 0 : 2);
    QPointer<QMenu> menu = space.rightClick(view, cell);
    QVERIFY(menu);
    if (where == "submenu") {
        const QMenu *colors = submenuOf(menu, "On Color");
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(3)).center());
        QTRY_VERIFY(colors->isVisible());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QVERIFY(!colors->isVisible());
        QVERIFY(menu->isVisible());
    }
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(childrenOf(space), children);
    QVERIFY(!menu);
    QCOMPARE(space.snapshot(), before);
}

void TestMenus::menuOverAnOpenMenu_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::newRow("pads") << false;
    QTest::newRow("keys") << true;
}

void TestMenus::menuOverAnOpenMenu()
{
    QFETCH(bool, onKeys);

    Workspace space;
    if (onKeys) {
        QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnKey(3, 2, 2) && space.putOnKey(4, 3, 3));
    } else {
        QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnPad(3, 2) && space.putOnPad(4, 3));
    }
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    const int col = onKeys ? 3 : 0;
    const int children = childrenOf(space);
    QPointer<QMenu> first = space.rightClick(view, view->model()->index(2, onKeys ? 2 : 0));
    QVERIFY(first);
    QPointer<QMenu> second = space.rightClick(view, view->model()->index(3, col));
    QVERIFY(second);
    QVERIFY(first != second);

    // An entry of either works on what is clicked and selected now.
    QVERIFY(Workspace::pick(second, {"Remove"}));
    QCOMPARE(space.ticked(), QList<int>({3}));
    if (first)
        first->close();
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(childrenOf(space), children);
    QVERIFY(!first && !second);
}

void TestMenus::tableChangesUnderTheMenu_data()
{
    QTest::addColumn<QByteArray>("act");
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QStringList>("switched"); // the Switch keys afterwards
    for (const QByteArray act : {"cleanmidi_button", "actionNew_2"}) {
        const auto row = [&act](const QStringList &path, const QStringList &switched) {
            QTest::addRow("%s, %s", act.constData(), qPrintable(path.constLast())) << act << path << switched;
        };
        row({"Remove"}, {});
        row({"Off Color", " red"}, {});
        row({"Blink"}, {});
        row({"Set as Switch"}, {"2,2"});
    }
}

void TestMenus::tableChangesUnderTheMenu()
{
    QFETCH(QByteArray, act);
    QFETCH(QStringList, path);
    QFETCH(QStringList, switched);

    Workspace space;
    QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(3, 2, 2));
    QMenu *menu = space.rightClick(space.gridView(), space.grid()->index(2, 2));
    QVERIFY(menu);
    QVERIFY(space.call("on_" + act + (act.startsWith("action") ? "_triggered" : "_clicked")));
    QVERIFY(Workspace::pick(menu, path));
    if (switched.isEmpty())
        QCOMPARE(space.leftOnGrid(), QString()); // nothing is selected any more
    QCOMPARE(switches(space), switched);
}

void TestMenus::windowGoesWithAnOpenMenu_data()
{
    QTest::addColumn<QString>("where");
    for (const char *where : {"pad", "key", "submenu", "closed a moment ago"})
        QTest::newRow(where) << where;
}

void TestMenus::windowGoesWithAnOpenMenu()
{
    QFETCH(QString, where);

    QPointer<QMenu> menu;
    {
        Workspace space;
        if (where == "pad") {
            QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
            QVERIFY(space.putOnPad(3, 0));
            menu = space.rightClick(space.padsView(), space.pads()->index(0, 0));
        } else {
            QVERIFY2(startOnKeys(space, Akai), qPrintable(space.dialogs.faults()));
            QVERIFY(space.putOnKey(3, 2, 2));
            menu = space.rightClick(space.gridView(), space.grid()->index(2, 2));
        }
        QVERIFY(menu);
        if (where == "submenu") {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(2)).center());
            QTRY_VERIFY(submenuOf(menu, "Off Color")->isVisible());
        } else if (where == "closed a moment ago") {
            menu->close();
        }
    }
    QVERIFY(!menu);
    deleteWhatIsDue();
    QApplication::processEvents();
    QVERIFY(!QApplication::activePopupWidget());
}

void TestMenus::menusAreFreed_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QStringList>("path"); // empty: the menu is closed
    QTest::newRow("pad, closed") << "pad" << QStringList();
    QTest::newRow("pad, Remove at every 20th opening") << "pad" << QStringList{"Remove"};
    QTest::newRow("key, closed") << "key" << QStringList();
    QTest::newRow("key, colour at every 20th opening") << "key" << QStringList{"On Color", " #AA5500"};
    QTest::newRow("key, Blink at every 20th opening") << "key" << QStringList{"Blink"};
    QTest::newRow("empty key, Switch at every 20th opening") << "empty key" << QStringList{"Set as Switch"};
    QTest::newRow("beside the keys, closed") << "beside the keys" << QStringList();
}

void TestMenus::menusAreFreed()
{
    QFETCH(QString, where);
    QFETCH(QStringList, path);

    Workspace space;
    const bool onPads = where == "pad";
    if (onPads) {
        QVERIFY2(startOnPads(space), qPrintable(space.dialogs.faults()));
    } else {
        QVERIFY2(startOnKeys(space, Classic), qPrintable(space.dialogs.faults()));
        QVERIFY(where != "key" || space.putOnKey(3, 2, 2));
    }
    QTableView *view = onPads ? space.padsView() : space.gridView();
    const QModelIndex cell = view->model()->index(onPads ? 0 : 2, onPads ? 0 : 2);
    const QPoint point = where == "beside the keys" ? besideTheCells(view) : view->visualRect(cell).center();
    const int children = childrenOf(space);
    for (int turn = 0; turn < 1000; ++turn) {
        if (onPads && cell.data(ButtonRole).toInt() < 0)
            QVERIFY(space.putOnPad(3, 0));
        QMenu *menu = space.rightClick(view, point);
        QVERIFY(menu);
        if (!path.isEmpty() && turn % 20 == 0) {
            QStringList entries = path;
            if (entriesOf(menu).contains("On Color >") && path.size() == 2 && turn > 0)
                entries.last().replace(0, 1, "✔");
            QVERIFY(Workspace::pick(menu, entries));
        } else {
            menu->close();
        }
        QVERIFY(!QApplication::activePopupWidget());
    }
    QCOMPARE(childrenOf(space), children);
}

QTEST_MAIN(TestMenus)
#include "test_menus.moc"
