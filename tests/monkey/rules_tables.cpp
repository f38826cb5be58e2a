#include "rules.h"

#include <QRegularExpression>

#include <algorithm>

namespace Rules {

namespace {

At place(const QString &text)
{
    return {text.section(',', 0, 0).toInt(), text.section(',', 1).toInt()};
}

/** The place in the gesture's words "at", "from" or "to". */
At place(const Gesture &gesture, const char *word)
{
    return place(gesture.text(word));
}

QString padLabel(int number)
{
    return "PAD " + QString::number(number);
}

/** The label of a key that was moved away or has a tip: unlike the resting one it counts the bands' corners. */
QString movedLabel(At at)
{
    if ((at.row == 0 || at.row == 11) && (at.col == 1 || at.col == 11))
        return (at.row == 0 ? "TOP " : "BOTTOM ") + QString::number(at.col - 1);
    return restingLabel(at);
}

Outcome refused()
{
    Outcome outcome;
    outcome.isTaken = false;
    return outcome;
}

Cell dragged(const World &world, int button)
{
    const Button &from = world.buttons.at(button);
    Cell cell;
    cell.name = cell.dspname = from.title;
    cell.page = from.page;
    cell.id = QString::number(button);
    cell.color = from.color;
    cell.blink.clear();
    return cell;
}

/** What a drop writes: all but the text colour. */
void fill(Cell &cell, const Cell &from)
{
    const QString textColor = cell.textColor;
    cell = from;
    cell.color = colorName(from.color);
    cell.textColor = textColor;
}

void fillPad(World &world, At at, const Cell &from)
{
    fill(world.pads.at(at), from);
    renamePad(world.pads.at(at), at.row, from.name);
}

void rest(Cell &cell, const QString &label)
{
    cell.name = cell.dspname = label;
    cell.page = "0";
    cell.id = "-1";
    cell.color = "#000000";
    cell.avail = "1";
}

void untick(World &world, int button)
{
    if (button >= 0 && button < world.buttons.size())
        world.buttons[button].isTicked = false;
}

/** Pads of the second column do not count. */
void untickUnlessOnPads(World &world, int button)
{
    for (int row = 0; row < world.pads.rows; ++row) {
        if (world.pads.at({row, 0}).id.toInt() == button)
            return;
    }
    untick(world, button);
}

void untickUnlessOnKeys(World &world, int button)
{
    for (const Cell &key : qAsConst(world.keys.cells)) {
        if (key.id.toInt() == button)
            return;
    }
    untick(world, button);
}

void clearKey(World &world, At at)
{
    Cell &key = world.keys.at(at);
    const int button = key.id.toInt();
    rest(key, restingLabel(at));
    key.textColor = "#ffffff";
    untickUnlessOnKeys(world, button);
}

bool isPadInSight(const World &world, At at)
{
    return !world.isMidi && world.pads.has(at) && at.row / 8 == world.bank
           && (at.col == 0 || world.has16Pads);
}

bool isFilledPadInSight(const World &world, At at)
{
    return isPadInSight(world, at) && world.pads.at(at).page != "0";
}

bool isButtonInSight(const World &world, int button)
{
    return button >= 0 && button < world.buttons.size() && !isRowHidden(world, button);
}

/** A pad that takes a Live Button; whether it had another one. */
bool layOnPad(World &world, int button, At at)
{
    const Cell before = world.pads.at(at);
    fillPad(world, at, dragged(world, button));
    tick(world, button);
    if (before.page.toInt() < 1)
        return false;
    untickUnlessOnPads(world, before.id.toInt());
    return true;
}

void layOnKey(World &world, int button, At at)
{
    Cell &key = world.keys.at(at);
    const Cell before = key;
    fill(key, dragged(world, button));
    tick(world, button);
    if (before.page.toInt() >= 1)
        untickUnlessOnKeys(world, before.id.toInt());
}

Outcome dropOnPad(World &world, const Gesture &gesture)
{
    const int button = gesture.number("button");
    const At at = place(gesture, "at");
    if (!isButtonInSight(world, button) || !isPadInSight(world, at))
        return Impossible;
    return layOnPad(world, button, at) ? focusOn("vdjlistview") : Outcome();
}

Outcome dropOnPadLine(World &world, const Gesture &gesture)
{
    const int button = gesture.number("button");
    if (!isButtonInSight(world, button) || !isPadInSight(world, {place(gesture, "at").row, 0}))
        return Impossible;
    tick(world, button); // although no pad took it
    return {};
}

Outcome movePad(World &world, const Gesture &gesture)
{
    const At from = place(gesture, "from");
    const At to = place(gesture, "to");
    if (!isFilledPadInSight(world, from) || !isPadInSight(world, to))
        return Impossible;
    const Cell before = world.pads.at(to);
    fillPad(world, to, world.pads.at(from));
    if (before.id == "-1")
        rest(world.pads.at(from), padLabel(from.row % 8 + 1));
    else
        fillPad(world, from, before);
    return {};
}

Outcome movePadOntoLine(World &world, const Gesture &gesture)
{
    const At from = place(gesture, "from");
    if (!isFilledPadInSight(world, from) || !isPadInSight(world, {place(gesture, "to").row, 0}))
        return Impossible;
    Cell &pad = world.pads.at(from);
    renamePad(pad, from.row, {});
    pad.dspname = pad.page = pad.id = pad.color = "";
    return {};
}

Outcome rename(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "at");
    if (!isFilledPadInSight(world, at))
        return Impossible;
    if (gesture.text("key") == "Return")
        renamePad(world.pads.at(at), at.row, gesture.text("name"));
    return {};
}

Outcome dropOnKey(World &world, const Gesture &gesture)
{
    const int button = gesture.number("button");
    const At at = place(gesture, "at");
    if (!world.isMidi || !isButtonInSight(world, button) || !world.keys.has(at))
        return Impossible;
    if (world.keys.at(at).avail != "1")
        return refused();
    layOnKey(world, button, at);
    return focusOn("tablecontroller");
}

Outcome dropOnKeyLine(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "at");
    const bool isSeen = world.isMidi && isButtonInSight(world, gesture.number("button"));
    return isSeen && world.keys.has(at) ? refused() : Impossible;
}

Outcome moveKey(World &world, const Gesture &gesture)
{
    const At from = place(gesture, "from");
    const At to = place(gesture, "to");
    if (!world.isMidi || !world.keys.has(from) || !world.keys.has(to))
        return Impossible;
    const Cell moved = world.keys.at(from);
    const Cell before = world.keys.at(to);
    if (moved.page == "0" || moved.avail != "1")
        return Impossible;
    if (before.avail != "1")
        return refused();
    fill(world.keys.at(to), moved);
    Cell &source = world.keys.at(from);
    if (before.id == "-1") {
        rest(source, movedLabel(from));
        source.off = source.on = source.blink = "";
    } else {
        fill(source, before);
    }
    return {};
}

/** The Live Button that Ctrl+C takes: one of the list, or that of a pad or key; none where the list lacks it. */
int copied(const World &world, const Table &table, const Gesture &gesture)
{
    if (gesture.words.contains("button"))
        return gesture.number("button");
    const At from = place(gesture, "from");
    const QString id = table.at(from).id;
    const int button = id.toInt();
    return id == QString::number(button) && button < world.buttons.size() ? button : -1;
}

Outcome pasteOnPad(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "at");
    const int button = copied(world, world.pads, gesture);
    const bool isOfList = gesture.words.contains("button");
    if (!isPadInSight(world, at)
        || !(isOfList ? isButtonInSight(world, button) : isPadInSight(world, place(gesture, "from"))))
        return Impossible;
    if (button >= 0)
        layOnPad(world, button, at);
    return focusOn("vdjlistview");
}

Outcome pasteOnKey(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "at");
    const int button = copied(world, world.keys, gesture);
    if (!world.isMidi || (gesture.words.contains("button") && !isButtonInSight(world, button)))
        return Impossible;
    if (button >= 0 && world.keys.at(at).avail == "1")
        layOnKey(world, button, at);
    return focusOn("tablecontroller");
}

Outcome clean(World &world, const Gesture &gesture)
{
    if (world.isMidi != (gesture.verb == "clean-keys"))
        return Impossible;
    world.isMidi ? emptyKeys(world) : emptyPads(world);
    untickAll(world);
    return focusOn("dmxlistview");
}

Outcome menuOfPad(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "at");
    if (!isPadInSight(world, at))
        return Impossible;
    Cell &pad = world.pads.at(at);
    Outcome outcome;
    if (pad.id.toInt() < 0)
        return outcome;
    outcome.menu = QStringList{"Remove"};
    if (gesture.text("pick") != "remove")
        return outcome;
    outcome.pick = outcome.menu;
    const int button = pad.id.toInt();
    rest(pad, padLabel(at.row % 8 + 1));
    untickUnlessOnPads(world, button);
    outcome.focus = "vdjlistview";
    return outcome;
}

const QString Mark = QString(QChar(0x2714));

QStringList colorEntries(const World &world, const QString &menu, const QString &current)
{
    const Device device = world.devices.value(world.device);
    QStringList entries = {menu, menu + "/" + (current.isEmpty() ? Mark : QString(" ")) + "default",
                           menu + "/---"};
    if (device.fullRgb != "false")
        return entries + QStringList(menu + "/Select ...");
    for (const QString &color : device.colors)
        entries.append(menu + "/" + (color == current ? Mark : QString(" ")) + color);
    return entries;
}

QStringList keyMenu(const World &world, At at)
{
    const Cell &key = world.keys.at(at);
    const bool isSwitch = world.switchRow == at.row && world.switchCol == at.col;
    QStringList menu;
    if (key.id.toInt() >= 0) {
        menu << "Remove"
             << "---";
        menu += colorEntries(world, "Off Color", key.off) + colorEntries(world, "On Color", key.on);
        menu << (key.blink == "1" ? "[x] Blink" : "[ ] Blink");
    }
    return menu << "---" << (isSwitch ? "[x] Set as Switch" : "[ ] Set as Switch");
}

/** Those of some cells that the device has. */
QVector<At> usable(const World &world, const QString &selected)
{
    QVector<At> cells;
    const QStringList places = selected.split(' ', Qt::SkipEmptyParts);
    for (const QString &text : places) {
        if (world.keys.at(place(text)).avail == "1")
            cells.append(place(text));
    }
    return cells;
}

/** The cells that a menu works on; none where the device lacks the clicked one. */
QVector<At> selection(const World &world, const Gesture &gesture)
{
    const At clicked = place(gesture, "at");
    const bool isKey = world.keys.at(clicked).avail == "1";
    return isKey ? usable(world, gesture.text("selected")) : QVector<At>();
}

void markSwitch(World &world, At at)
{
    clearKey(world, at);
    Cell &key = world.keys.at(at);
    key.name = key.dspname = "SWITCH";
    key.avail = "0";
    key.textColor = "green";
    world.switchRow = at.row;
    world.switchCol = at.col;
}

void toggleSwitch(World &world, At at)
{
    const At old{world.switchRow, world.switchCol};
    if (old.row >= 0)
        clearKey(world, old);
    if (old.row == at.row && old.col == at.col)
        world.switchRow = world.switchCol = -1;
    else
        markSwitch(world, at);
}

/** The colour that is picked goes to the whole selection; entry 0 is the default. */
bool pickColor(World &world, const Gesture &gesture, const Cell &clicked, Outcome &outcome)
{
    const bool isOff = gesture.text("pick") == "off";
    const int entry = gesture.number("entry");
    const Device device = world.devices.value(world.device);
    const bool isFree = device.fullRgb != "false";
    const QStringList palette = isFree ? QStringList("Select ...") : device.colors;
    if (entry < 0 || entry > palette.size())
        return false;
    const QString menu = isOff ? "Off Color" : "On Color";
    const QString current = isOff ? clicked.off : clicked.on;
    const QStringList entries = colorEntries(world, menu, current);
    outcome.pick = QStringList{menu, entries.at(entry == 0 ? 1 : entry + 2).section('/', 1)};
    QString color = entry == 0 ? QString() : palette.at(entry - 1);
    if (isFree && entry == 1) {
        color = gesture.text("color");
        outcome.questions.append({Question::Color, current, {}, {}, color, false});
        if (color.isEmpty())
            return true;
    }
    for (const At &at : selection(world, gesture)) {
        Cell &key = world.keys.at(at);
        (isOff ? key.off : key.on) = color;
    }
    return true;
}

void pickBlink(World &world, const Gesture &gesture, const Cell &clicked, Outcome &outcome)
{
    outcome.pick = QStringList("Blink");
    const QString blink = clicked.blink == "1" ? "" : "1";
    for (const At &at : selection(world, gesture))
        world.keys.at(at).blink = blink;
}

void pickRemove(World &world, const Gesture &gesture, Outcome &outcome)
{
    outcome.pick = QStringList("Remove");
    for (const At &at : selection(world, gesture))
        clearKey(world, at);
    outcome.focus = "tablecontroller";
}

Outcome deletePad(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "selected");
    if (!isPadInSight(world, at))
        return Impossible;
    Cell &pad = world.pads.at(at);
    const int button = pad.id.toInt();
    if (button >= 0) {
        rest(pad, padLabel(at.row % 8 + 1));
        untickUnlessOnPads(world, button);
    }
    return focusOn("vdjlistview");
}

Outcome deleteKeys(World &world, const Gesture &gesture)
{
    if (!world.isMidi)
        return Impossible;
    const QVector<At> cells = usable(world, gesture.text("selected"));
    const bool isFilled = std::any_of(cells.cbegin(), cells.cend(),
                                      [&world](const At &at) { return world.keys.at(at).id.toInt() >= 0; });
    for (const At &at : cells) {
        if (isFilled)
            clearKey(world, at);
    }
    return focusOn("tablecontroller");
}

Outcome menuOfKey(World &world, const Gesture &gesture)
{
    const At at = place(gesture, "at");
    const QString pick = gesture.text("pick");
    // The corner lies under the button "Clean". A cell that can be selected is, by the click.
    if (!world.isMidi || !world.keys.has(at) || (at.row == 0 && at.col == 0))
        return Impossible;
    const Cell clicked = world.keys.at(at);
    const QStringList selected = gesture.text("selected").split(' ', Qt::SkipEmptyParts);
    if (clicked.avail == "1" && !selected.contains(gesture.text("at")))
        return Impossible;
    Outcome outcome;
    outcome.menu = keyMenu(world, at);
    if (pick == "none")
        return outcome;
    if (pick == "switch") {
        outcome.pick = QStringList("Set as Switch");
        toggleSwitch(world, at);
        outcome.focus = "tablecontroller";
        return outcome;
    }
    if (clicked.id.toInt() < 0)
        return Impossible;
    if (pick == "blink")
        pickBlink(world, gesture, clicked, outcome);
    else if (pick == "remove")
        pickRemove(world, gesture, outcome);
    else if (!pickColor(world, gesture, clicked, outcome))
        return Impossible;
    return outcome;
}

} // namespace

QVector<At> Table::places() const
{
    QVector<At> all;
    for (int place = 0; place < rows * cols; ++place)
        all.append({place / cols, place % cols});
    return all;
}

/** The text form of a kept colour: a hash and six small digits. What is no colour counts as black. */
QString colorName(const QString &kept)
{
    static const QRegularExpression digits("^#[0-9a-fA-F]{6}$");
    return digits.match(kept).hasMatch() ? kept.toLower() : "#000000";
}

QString padTip(const World &world, At at)
{
    const Cell &pad = world.pads.at(at);
    if (pad.id == "-1")
        return {};
    return padLabel(at.row + 1) + " \nLive Button: " + pad.dspname + " \nDisplay Text: " + pad.name
           + "\n\nDouble-click to edit Text\nRight-click to Remove";
}

/** Its pictures told as "<img COLOR>". */
QString keyTip(const World &world, At at)
{
    const Cell &key = world.keys.at(at);
    if (key.id == "-1" || key.avail == "0")
        return {};
    QString tip = movedLabel(at) + "<br>Live Button: " + key.name;
    if (!key.off.isEmpty())
        tip += "<br>Off Color : <img " + key.off + ">";
    if (!key.on.isEmpty())
        tip += "<br>On Color : <img " + key.on + ">";
    if (key.blink == "1")
        tip += "<br>Blink : Yes";
    return tip + "<br><br>Right-click to Remove";
}

int padFlags(const Cell &pad)
{
    return pad.page == "0" ? 41 : 47;
}

int keyFlags(const Cell &key)
{
    if (key.page == "0")
        return key.avail == "1" ? 41 : 0;
    return key.avail == "1" ? 45 : 1;
}

bool isRowHidden(const World &world, int button)
{
    return world.page > 0 && world.buttons.at(button).page.toInt() != world.page;
}

bool isEmpty(const Table &table)
{
    return std::none_of(table.cells.cbegin(), table.cells.cend(),
                        [](const Cell &cell) { return cell.id.toInt() >= 0; });
}

bool holdsWork(const World &world)
{
    return !world.showName.isEmpty() && !isEmpty(world.isMidi ? world.keys : world.pads);
}

void tick(World &world, int button)
{
    if (button >= 0 && button < world.buttons.size())
        world.buttons[button].isTicked = true;
}

void untickAll(World &world)
{
    for (Button &button : world.buttons)
        button.isTicked = false;
}

/** As a click on an output does it. */
void retick(World &world)
{
    QStringList numbers;
    const Table &table = world.isMidi ? world.keys : world.pads;
    for (const At at : table.places()) {
        if (table.at(at).id.toInt() >= 0 && (world.isMidi || at.col == 0))
            numbers.append(table.at(at).id);
    }
    for (int i = 0; i < world.buttons.size(); ++i)
        world.buttons[i].isTicked = numbers.contains(QString::number(i));
}

void emptyPads(World &world)
{
    world.pads.cells = QVector<Cell>(world.pads.rows * world.pads.cols);
    for (const At at : world.pads.places())
        rest(world.pads.at(at), padLabel(at.row % 8 + 1 + 8 * at.col));
    world.bank = 0;
    world.bankField = world.banks.value(0);
}

void emptyKeys(World &world)
{
    world.keys.cells = QVector<Cell>(world.keys.rows * world.keys.cols);
    for (const At at : world.keys.places()) {
        rest(world.keys.at(at), restingLabel(at));
        world.keys.at(at).avail = hasKey(world.devices.value(world.device), at) ? "1" : "0";
    }
}

void renamePad(Cell &pad, int row, const QString &name)
{
    pad.name = name.isEmpty() ? padLabel(row + 1) : name;
}

QMap<QString, Rule> rulesOfTables()
{
    return {{"drop-pad", dropOnPad},   {"drop-pad-line", dropOnPadLine},
            {"move-pad", movePad},     {"move-pad-line", movePadOntoLine},
            {"rename", rename},        {"drop-key", dropOnKey},
            {"move-key", moveKey},     {"drop-key-line", dropOnKeyLine},
            {"paste-pad", pasteOnPad}, {"paste-key", pasteOnKey},
            {"delete-pad", deletePad}, {"delete-key", deleteKeys},
            {"clean-pads", clean},     {"clean-keys", clean},
            {"menu-pad", menuOfPad},   {"menu-key", menuOfKey}};
}

} // namespace Rules
