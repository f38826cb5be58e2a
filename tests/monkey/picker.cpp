#include "picker.h"

namespace {

const QStringList Gates = {"Save", "Yes", "Yes", "Cancel", "Escape"};
const QStringList Overs = {"Yes", "Yes", "No", "Escape"};
const QStringList SaveFiles = {"a.zarvex", "a.zarvex", "my.show.zarvex", "plain", "", "nowhere/a.zarvex"};
const QStringList PadNames = {"Go", "Hit it", "", "It's", "R&B", "50% \"x\"", "<b>", "a : b ? c"};
const QStringList BankNames = {"Verse", "Front, left", "", "It's", "<", "BANK 1"};
const QStringList PageNames = {"Night", "My.Page", "", "R&B", "It's", "Night"};
const QStringList Colors = {"#0a0b0c", "#ffffff", "#ff0000", ""};

QString at(int row, int col)
{
    return QString::number(row) + "," + QString::number(col);
}

} // namespace

Gesture Picker::next(const Rules::World &world)
{
    for (;;) {
        const Gesture gesture = pick(world);
        Rules::World copy = world;
        if (Rules::play(copy, gesture).isPossible)
            return gesture;
    }
}

QString Picker::pad(const Rules::World &world)
{
    return at(world.bank * 8 + below(8), world.has16Pads ? below(2) : 0);
}

QString Picker::filledPad(const Rules::World &world)
{
    QStringList filled;
    for (const Rules::At pad : world.pads.places()) {
        const bool isInSight = pad.row / 8 == world.bank && (world.has16Pads || pad.col == 0);
        if (isInSight && world.pads.at(pad).page != "0")
            filled.append(at(pad.row, pad.col));
    }
    return filled.isEmpty() || oneIn(15) ? pad(world) : any(filled);
}

/** One of few keys most of the time, so that things meet. */
QString Picker::key(const Rules::World &world)
{
    if (oneIn(6))
        return at(below(12), below(12));
    if (oneIn(8) && world.switchRow >= 0)
        return at(world.switchRow, world.switchCol);
    return any({"2,2", "2,3", "3,2", "3,3", "4,4", "0,2", "11,2", "2,11", "9,11", "2,0"});
}

QString Picker::filledKey(const Rules::World &world)
{
    QStringList filled;
    for (const Rules::At key : world.keys.places()) {
        if (world.keys.at(key).id != "-1")
            filled.append(at(key.row, key.col));
    }
    return filled.isEmpty() || oneIn(10) ? key(world) : any(filled);
}

QString Picker::someButton(const Rules::World &world)
{
    return QString::number(below(qMax(1, world.buttons.size())));
}

Gesture Picker::onPads(const Rules::World &world)
{
    const int dice = below(46);
    if (dice < 14)
        return {"drop-pad", {{"button", someButton(world)}, {"at", pad(world)}}};
    if (dice < 25)
        return {"move-pad", {{"from", filledPad(world)}, {"to", oneIn(3) ? filledPad(world) : pad(world)}}};
    if (dice < 26)
        return {"drop-pad-line", {{"button", someButton(world)}, {"at", pad(world)}}};
    if (dice < 27)
        return {"move-pad-line", {{"from", filledPad(world)}, {"to", pad(world)}}};
    if (dice < 32)
        return {"rename",
                {{"at", filledPad(world)},
                 {"name", any(PadNames)},
                 {"key", oneIn(4) ? QString("Escape") : QString("Return")}}};
    if (dice < 39)
        return {"menu-pad",
                {{"at", filledPad(world)}, {"pick", oneIn(5) ? QString("none") : QString("remove")}}};
    if (dice < 40)
        return oneIn(3) ? Gesture{"clean-pads", {}} : Gesture{"drop-pad", {{"at", pad(world)}}};
    if (dice < 42)
        return {"delete-pad", {{"selected", filledPad(world)}}};
    if (dice < 44)
        return {"paste-pad", {{"button", someButton(world)}, {"at", pad(world)}}};
    return {"paste-pad", {{"from", filledPad(world)}, {"at", pad(world)}}};
}

Gesture Picker::keyMenu(const Rules::World &world)
{
    const QString pick =
        any({"none", "remove", "remove", "off", "off", "on", "on", "blink", "blink", "switch", "switch"});
    const QString at = pick == "switch" && !oneIn(3) ? key(world) : filledKey(world);
    QStringList selected = {at};
    while (oneIn(2))
        selected.append(filledKey(world));
    Gesture gesture{"menu-key", {{"at", at}, {"pick", pick}, {"selected", selected.join(' ')}}};
    if (pick == "off" || pick == "on") {
        gesture.words.insert("entry", QString::number(below(5)));
        gesture.words.insert("color", any(Colors));
    }
    return gesture;
}

Gesture Picker::onKeys(const Rules::World &world)
{
    const int dice = below(46);
    if (dice < 12)
        return {"drop-key", {{"button", someButton(world)}, {"at", key(world)}}};
    if (dice < 23)
        return {"move-key", {{"from", filledKey(world)}, {"to", oneIn(3) ? filledKey(world) : key(world)}}};
    if (dice < 24)
        return {"drop-key-line", {{"button", someButton(world)}, {"at", key(world)}}};
    if (dice < 39)
        return keyMenu(world);
    if (dice < 40)
        return oneIn(3) ? Gesture{"clean-keys", {}}
                        : Gesture{"drop-key", {{"button", someButton(world)}, {"at", key(world)}}};
    if (dice < 42)
        return {"delete-key", {{"selected", filledKey(world) + " " + key(world)}}};
    if (dice < 44)
        return {"paste-key", {{"button", someButton(world)}, {"at", key(world)}}};
    return {"paste-key", {{"from", filledKey(world)}, {"at", key(world)}}};
}

Gesture Picker::onDevices(const Rules::World &world)
{
    const auto place = [this](int end) { return QString::number(below(qMax(1, end))); };
    switch (below(6)) {
    case 0:
        return {"device", {{"index", place(7)}}};
    case 1:
        return {"device", {{"index", place(2)}}};
    case 2:
        return {"off-color", {{"index", place(world.palette.size())}}};
    case 3:
        return {"on-color", {{"index", place(world.palette.size())}}};
    default:
        return {"mapper", {{"index", place(world.mapperNames.size())}}};
    }
}

Gesture Picker::onPanels(const Rules::World &world)
{
    switch (below(world.isMidi ? 3 : 6)) {
    case 0:
        return {"output", {{"output", world.isMidi && oneIn(2) ? QString("pads") : QString("midi")}}};
    case 1:
        return {"name-page", {{"name", any(PageNames)}}};
    case 2:
        return {"page", {{"index", QString::number(below(qMax(1, world.pages.size())))}}};
    case 3:
        return {"name-bank", {{"name", any(BankNames)}}};
    case 4:
        return {"layout", {{"pads", any({"8", "16", "16"})}}};
    default:
        return {"bank", {{"index", oneIn(2) ? QString("0") : QString::number(below(8))}}};
    }
}

Gesture Picker::load(const Rules::World &world)
{
    const QMap<QString, QString> answers = {
        {"gate", any(Gates)}, {"file", any(SaveFiles)}, {"over", any(Overs)}};
    Gesture gesture{oneIn(3) ? "load-show" : "load-project", answers};
    if (gesture.verb == "load-show") {
        const QString show =
            any({"Club", "Club", "Club", "Odd", "Odd", "Odd", "Pageless", "Locked", "Hollow", ""});
        gesture.words.insert("show", show);
        return gesture;
    }
    QStringList projects = {""};
    for (const QString &path : world.files.keys()) {
        if (path.startsWith(world.projectFolder + "/"))
            projects.append(path.section('/', -1));
    }
    // What was saved matters more than what was written by hand.
    const QString saved = any({"a.zarvex", "my.show.zarvex", "plain"});
    gesture.words.insert("project", oneIn(2) && projects.contains(saved) ? saved : any(projects));
    return gesture;
}

Gesture Picker::command(const Rules::World &world)
{
    const int dice = below(100);
    const QString over = any(Overs);
    if (dice < 40)
        return {"export", {{"by", any({"button", "menu"})}, {"over", over}}};
    if (dice < 62)
        return {"save", {{"file", any(SaveFiles)}, {"over", over}}};
    if (dice < 88)
        return load(world);
    if (dice < 93)
        return {"new-project", {}};
    return {dice < 96 ? "exit" : "close", {{"gate", any({"Yes", "Cancel", "Escape"})}}};
}

Gesture Picker::pick(const Rules::World &world)
{
    if (world.buttons.isEmpty() && oneIn(2))
        return load(world);
    const int dice = below(100);
    if (dice < 70)
        return world.isMidi ? onKeys(world) : onPads(world);
    if (dice < 78 && world.isMidi)
        return onDevices(world);
    return dice < 88 ? onPanels(world) : command(world);
}
