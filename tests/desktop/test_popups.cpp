#include "desktop/desk.h"
#include "support/boxes.h"
#include "support/files.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolTip>

/** Lists of combo boxes, menus of the right button, tool tips and the editor of a pad's text, with a real mouse. */
class TestPopups final : public DeskTest
{
    Q_OBJECT

private slots:
    void combos_data();
    void combos();
    void menuOfAPad_data();
    void menuOfAPad();
    void menuOfAKey_data();
    void menuOfAKey();
    void paletteOfAKey_data();
    void paletteOfAKey();
    void anyColourOfAKey_data();
    void anyColourOfAKey();
    void rename_data();
    void rename();
    void menuTakesOverTheTextOfAPad();
    void whatCannotBeRenamed_data();
    void whatCannotBeRenamed();
    void toolTips_data();
    void toolTips();
};

namespace {

QString textOf(const QModelIndex &cell, int role = Qt::DisplayRole)
{
    return cell.data(role).toString();
}

} // namespace

void TestPopups::combos_data()
{
    addColumns<QString>({"combo", "how"});
    addColumns<int>({"picked"});

    for (const QString combo : {"combobox", "bankcombo", "devicescombo", "mididevices", "combo_offcolor"})
        addRow(combo + " by the mouse", combo, "by the mouse", 1);
    const QString combo = "combo_oncolor";
    for (const QString how : {"by the mouse", "by arrows in the open list", "by arrows on the closed box"})
        addRow(combo + " " + how, combo, how, 1);
    addRow(combo + " given up by Escape", combo, "Escape", 0);
    addRow(combo + " given up by a click beside it", combo, "beside", 0);
}

void TestPopups::combos()
{
    QFETCH(QString, combo);
    QFETCH(QString, how);
    QFETCH(int, picked);
    Desk &desk = *m_desk;
    QVERIFY(combo == "combobox" || combo == "bankcombo" ? desk.clearPads() : desk.clearKeys());
    auto *box = desk.space.find<QComboBox>(qPrintable(combo));
    box->setCurrentIndex(0);

    if (how == "by the mouse") {
        desk.input.pick(box, 1);
    } else {
        desk.input.openList(box);
        if (how == "by arrows on the closed box")
            desk.input.key("Escape");
        else if (how == "beside")
            desk.input.click(desk.on("label_4"));
        if (how != "beside")
            desk.input.key("Down");
        if (how == "by arrows in the open list")
            desk.input.key("Return");
        else if (how == "Escape")
            desk.input.key("Escape");
        desk.input.awaitNoPopup();
    }
    QVERIFY(desk.input.play());

    QCOMPARE(box->currentIndex(), picked);
    box->setCurrentIndex(0);
}

void TestPopups::menuOfAPad_data()
{
    addColumns<QString>({"how", "filled", "label", "ticks"});

    addRow("Remove by the mouse", "mouse", "3,0=1-2", "PAD 2", "1");
    addRow("Remove by the keyboard", "keys", "3,0=1-2", "PAD 2", "1");
    addRow("closed by Escape", "Escape", "1,0=1-1 3,0=1-2", "1-1", "0 1");
    addRow("closed by a click beside it", "beside", "1,0=1-1 3,0=1-2", "1-1", "0 1");
}

void TestPopups::menuOfAPad()
{
    QFETCH(QString, how);
    QFETCH(QString, filled);
    QFETCH(QString, label);
    QFETCH(QString, ticks);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "1,0=0 3,0=1"));

    desk.input.click(Places::cell(desk.pads(), 1), 3);
    desk.input.await("the menu", [] { return openMenus() == QList<QStringList>{{"Remove"}}; });
    if (how == "mouse")
        desk.input.pickEntry("Remove");
    else if (how == "beside")
        desk.input.click(desk.on("label_4"));
    else
        desk.input.key(how == "Escape" ? "Escape" : "Down");
    if (how == "keys")
        desk.input.key("Return");
    desk.input.awaitNoPopup();
    QVERIFY(desk.input.play());

    QCOMPARE(Desk::filled(desk.pads()), filled);
    QCOMPARE(textOf(desk.space.pads()->index(1, 0)), label);
    QCOMPARE(desk.ticks(), ticks);
}

void TestPopups::menuOfAKey_data()
{
    addColumns<QString>({"gestures", "text", "button", "blink", "ticks"});

    addRow("Remove by the mouse", "Remove", "PAD 19", "-1", "", "1");
    addRow("Remove by the keyboard", "Down Return", "PAD 19", "-1", "", "1");
    addRow("Blink by the mouse", "Blink", "1-1", "0", "1", "0 1");
    addRow("Blink by the keyboard", "Down Down Down Down Return", "1-1", "0", "1", "0 1");
    addRow("Set as Switch by the mouse", "Set as Switch", "SWITCH", "-1", "", "1");
    addRow("Set as Switch by the keyboard", "Up Return", "SWITCH", "-1", "", "1");
    addRow("closed by Escape", "Escape", "1-1", "0", "", "0 1");
    addRow("closed by Escape on an entry", "Down Down Escape", "1-1", "0", "", "0 1");
}

void TestPopups::menuOfAKey()
{
    QFETCH(QString, gestures);
    QFETCH(QString, text);
    QFETCH(QString, button);
    QFETCH(QString, blink);
    QFETCH(QString, ticks);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "4,4=0 4,5=1"));

    desk.input.click(Places::cell(desk.grid(), 4, 4), 3);
    desk.input.await("the menu", [] {
        return openMenus()
               == QList<QStringList>{{"Remove", "-", "Off Color", "On Color", "Blink", "-", "Set as Switch"}};
    });
    static const QRegularExpression keys("^(Down|Up|Return|Escape)\\b");
    if (keys.match(gestures).hasMatch())
        desk.input.keys(gestures);
    else
        desk.input.pickEntry(gestures);
    desk.input.awaitNoPopup();
    QVERIFY(desk.input.play());

    const QModelIndex key = desk.space.grid()->index(4, 4);
    QCOMPARE(textOf(key), text);
    QCOMPARE(textOf(key, ButtonRole), button);
    QCOMPARE(textOf(key, BlinkRole), blink);
    QCOMPARE(desk.ticks(), ticks);
    if (text == "SWITCH") {
        QCOMPARE(textOf(key, AvailableRole), QString("0"));
        QVERIFY(desk.space.call("ontoggleaction_triggered")); // off again, for who comes next
    }
}

void TestPopups::paletteOfAKey_data()
{
    addColumns<QString>({"submenu", "how", "before", "after"});
    addColumns<QStringList>({"entries"});
    const QStringList plain = {"✔default", "-", " black", " green", " red", " yellow"};
    const QStringList red = {" default", "-", " black", " green", "✔red", " yellow"};

    addRow("off colour by the mouse", "Off Color", " yellow", "", "yellow", plain);
    addRow("on colour by the mouse", "On Color", " green", "", "green", plain);
    addRow("off colour to the default", "Off Color", " default", "red", "", red);
    addRow("on colour to the default", "On Color", " default", "red", "", red);
    // The way in goes on the first entry, the default.
    const QString third = "Right Down Down Return";
    addRow("off colour by the keyboard", "Off Color", "Down Down " + third, "", "green", plain);
    addRow("on colour by the keyboard", "On Color", "Down Down Down " + third, "", "green", plain);
    addRow("off colour from below", "Off Color", "Down Down Return Up Return", "red", "yellow", red);
    addRow("given up by Escape", "Off Color", "Down Down Right Down Escape Escape", "red", "red", red);
    addRow("left to the left, then given up", "Off Color", "Down Down Right Left Escape", "red", "red", red);
}

void TestPopups::paletteOfAKey()
{
    QFETCH(QString, submenu);
    QFETCH(QString, how);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QStringList, entries);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearKeys());
    QVERIFY(desk.lay(desk.grid(), "4,4=0"));
    const QModelIndex key = desk.space.grid()->index(4, 4);
    const int role = submenu == "Off Color" ? OffColorRole : OnColorRole;
    QVERIFY(desk.space.grid()->setData(key, before, role));

    const auto awaitPalette = [&] {
        desk.input.await("the palette", [entries] { return openMenus().value(1) == entries; });
    };
    desk.input.click(Places::cell(desk.grid(), 4, 4), 3);
    desk.input.await("the menu", [] { return openMenus().size() == 1; });
    if (how.startsWith(' ')) {
        desk.input.openSubmenu(submenu);
        awaitPalette();
        desk.input.pickEntry(how);
    } else {
        desk.input.keys(how);
    }
    desk.input.awaitNoPopup();
    QVERIFY(desk.input.play());

    QCOMPARE(textOf(key, role), after);
    QCOMPARE(textOf(key, role == OffColorRole ? OnColorRole : OffColorRole), QString());
    QCOMPARE(textOf(key), QString("1-1"));
}

void TestPopups::anyColourOfAKey_data()
{
    addColumns<QString>({"submenu", "before", "how", "after"});

    addRow("off colour, typed", "Off Color", "", "Return", "#3060c0");
    addRow("on colour, typed", "On Color", "#ff0000", "Return", "#3060c0");
    addRow("off colour, typed, then OK by the mouse", "Off Color", "#ff0000", "OK", "#3060c0");
    addRow("off colour, given up by Escape", "Off Color", "#ff0000", "Escape", "#ff0000");
    addRow("on colour, given up by the mouse", "On Color", "", "Cancel", "");
}

void TestPopups::anyColourOfAKey()
{
    QFETCH(QString, submenu);
    QFETCH(QString, before);
    QFETCH(QString, how);
    QFETCH(QString, after);
    Desk &desk = *m_desk;
    const int device = desk.space.find<QComboBox>("devicescombo")->findText("Novation Launchpad MKII");
    QVERIFY(desk.clearKeys(device));
    QVERIFY(desk.lay(desk.grid(), "4,4=0"));
    const QModelIndex key = desk.space.grid()->index(4, 4);
    const int role = submenu == "Off Color" ? OffColorRole : OnColorRole;
    QVERIFY(desk.space.grid()->setData(key, before, role));

    desk.input.click(Places::cell(desk.grid(), 4, 4), 3);
    desk.input.openSubmenu(submenu);
    desk.input.pickEntry("Select ...");
    desk.input.awaitDialog(Boxes::colorDialog({}, {}).title);
    desk.input.keys("alt+h ctrl+a"); // the field HTML
    desk.input.type("#3060c0");
    if (how == "Return" || how == "Escape")
        desk.input.key(how);
    else
        desk.input.click(Places::dialogButton(how));
    desk.input.await("the dialog closes", [] { return !QApplication::activeModalWidget(); });
    QVERIFY(desk.input.play());

    QCOMPARE(textOf(key, role), after);
    QCOMPARE(textOf(key, role == OffColorRole ? OnColorRole : OffColorRole), QString());
}

void TestPopups::rename_data()
{
    addColumns<QString>({"typed", "end", "text"});

    for (const QString end :
         {"Return", "KP_Enter", "Tab", "another pad", "Live Button", "padsname", "bankcombo"})
        addRow("accepted by " + end, "big finale", end, "big finale");
    addRow("given up by Escape", "big finale", "Escape", "1-1");
    addRow("emptied", "", "Return", "PAD 2");
    addRow("as it was", "1-1", "Return", "1-1");
}

void TestPopups::rename()
{
    QFETCH(QString, typed);
    QFETCH(QString, end);
    QFETCH(QString, text);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "1,0=0"));
    const auto editor = [&desk] { return desk.pads()->viewport()->findChild<QLineEdit *>(); };

    desk.input.doubleClick(Places::cell(desk.pads(), 1));
    desk.input.await("the editor", [editor] { return editor() && editor()->hasFocus(); });
    desk.input.keys("ctrl+a BackSpace");
    if (!typed.isEmpty())
        desk.input.type(typed);
    if (end == "another pad")
        desk.input.click(Places::cell(desk.pads(), 4));
    else if (end == "Live Button")
        desk.input.click(Places::cell(desk.list(), 3));
    else if (end == "bankcombo")
        desk.input.openList(desk.space.find<QComboBox>("bankcombo"));
    else if (end == "padsname")
        desk.input.click(desk.on("padsname"));
    else
        desk.input.key(end);
    if (end == "bankcombo")
        desk.input.key("Escape");
    desk.input.await("the editor closes", [editor] { return !editor(); });
    desk.input.awaitNoPopup();
    QVERIFY(desk.input.play());

    QCOMPARE(Desk::filled(desk.pads()), "1,0=" + text);
    QCOMPARE(textOf(desk.space.pads()->index(1, 0), DisplayNameRole), QString("1-1"));
    QCOMPARE(desk.foreignCell(desk.pads()), QString());
    QCOMPARE(desk.ticks(), QString("0"));
}

/** The mouse takes the focus from no editor when it opens a menu. */
void TestPopups::menuTakesOverTheTextOfAPad()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    QVERIFY(desk.lay(desk.pads(), "0,0=0"));
    desk.input.doubleClick(Places::cell(desk.pads(), 0));
    desk.input.await("the editor", [&desk] { return desk.pads()->viewport()->findChild<QLineEdit *>(); });
    desk.input.key("ctrl+a");
    desk.input.type("typed");
    desk.input.click(Places::menuTitle(&desk.space.window(), "File"));
    desk.input.pickEntry("Export");
    desk.input.awaitDialog(Boxes::pageCreated("OS2L DMX").text);
    desk.input.key("Return");
    desk.input.await("the notice closes", [&desk] { return desk.isAtRest(); });
    QVERIFY(desk.input.play());
    QVERIFY(bytesOf(desk.space.padsFolder() + "/OS2L DMX.xml").contains("get_text &apos;typed&apos;"));
}

void TestPopups::whatCannotBeRenamed_data()
{
    addColumns<QString>({"what"});
    addRow("empty pad", "pad");
    addRow("Live Button", "button");
    addRow("key", "key");
}

void TestPopups::whatCannotBeRenamed()
{
    QFETCH(QString, what);
    Desk &desk = *m_desk;
    QVERIFY(what == "key" ? desk.clearKeys() : desk.clearPads());
    QVERIFY(what == "key" ? desk.lay(desk.grid(), "2,2=0") : desk.lay(desk.pads(), "1,0=0"));
    const QTableView *view = what == "pad" ? desk.pads() : what == "key" ? desk.grid() : desk.list();
    const QStringList before = desk.space.snapshot();

    desk.input.doubleClick(Places::cell(view, 2, what == "key" ? 2 : 0));
    QVERIFY(desk.input.play());
    QVERIFY(!view->viewport()->findChild<QLineEdit *>());
    desk.input.type("x");
    desk.input.key("Return");
    QVERIFY(desk.input.play());
    QVERIFY(!view->viewport()->findChild<QLineEdit *>());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestPopups::toolTips_data()
{
    addColumns<QString>({"over", "text"});
    addRow("Live Button", "button", "Drag a Live Button and Drop to a VirtualDJ  Pad");
    addRow(
        "filled pad", "pad",
        "PAD 2 \nLive Button: 1-1 \nDisplay Text: 1-1\n\nDouble-click to edit Text\nRight-click to Remove");
    addRow("filled key", "key", "PAD 1<br>Live Button: 1-1<br><br>Right-click to Remove");
    addRow("Clean of the pads", "cleanpads_button", "Clean content from All Pads");
    addRow("Clean of the keys", "cleanmidi_button", "Clean content from All Buttons");
}

void TestPopups::toolTips()
{
    QFETCH(QString, over);
    QFETCH(QString, text);
    Desk &desk = *m_desk;
    const bool areKeys = over == "key" || over == "cleanmidi_button";
    QVERIFY(areKeys ? desk.clearKeys() : desk.clearPads());
    QVERIFY(areKeys ? desk.lay(desk.grid(), "2,2=0") : desk.lay(desk.pads(), "1,0=0"));

    if (over == "button")
        desk.input.moveTo(Places::cell(desk.list(), 2));
    else if (over == "pad")
        desk.input.moveTo(Places::cell(desk.pads(), 1));
    else if (over == "key")
        desk.input.moveTo(Places::cell(desk.grid(), 2, 2));
    else
        desk.input.moveTo(desk.on(qPrintable(over)));
    desk.input.await("the tool tip", [text] { return QToolTip::isVisible() && QToolTip::text() == text; });
    QVERIFY(desk.input.play());
}

QTEST_MAIN(TestPopups)
#include "test_popups.moc"
