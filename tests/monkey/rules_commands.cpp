#include "rules.h"

#include <algorithm>

namespace Rules {

namespace {

const QString AskSave = "Save Yes Cancel";

/** Asks about unsaved work where there is some; whether to go on. */
bool passesGate(World &world, const Gesture &gesture, const QString &text, Outcome &outcome)
{
    if (!holdsWork(world))
        return true;
    const QString answer = gesture.text("gate");
    outcome.questions.append({Question::Box, text, {}, AskSave, answer, false});
    if (answer == "Save")
        saveProject(world, gesture, outcome);
    return answer == "Save" || answer == "Yes";
}

Outcome leave(World &world, const Gesture &gesture)
{
    Outcome outcome;
    const QString answer = gesture.text("gate");
    outcome.hasLeft = !holdsWork(world) || answer == "Yes";
    if (holdsWork(world))
        outcome.questions.append({Question::Box, "Project is not empty.", "Are you sure you want to exit ?",
                                  "Yes Cancel", answer, false});
    return outcome;
}

Outcome newProject(World &world, const Gesture & /*gesture*/)
{
    emptyPads(world);
    emptyKeys(world);
    untickAll(world);
    return focusOn("dmxlistview");
}

Outcome chooseShow(World &world, const Gesture &gesture)
{
    Outcome outcome;
    if (!passesGate(world, gesture,
                    "Are you sure you want to open a new Show \nbefore saving current Project ?", outcome))
        return outcome;
    const QString name = gesture.text("show");
    const auto show = std::find_if(world.shows.cbegin(), world.shows.cend(),
                                   [&name](const Show &each) { return each.name == name; });
    if (!name.isEmpty() && show == world.shows.cend())
        return Impossible;
    const QString folder = name.isEmpty() ? QString() : show->file.section('/', 0, -3);
    outcome.questions.append({Question::Folder, {}, {}, {}, folder, false});
    if (name.isEmpty())
        return outcome;
    if (!show->exists) {
        tell(outcome, "LightShow Settings file not found. Please select a different LightShow Folder");
        outcome.questions.last().isWarning = true;
        return outcome;
    }
    world.showName = name;
    loadShow(world, show->file);
    return outcome;
}

Outcome chooseProject(World &world, const Gesture &gesture)
{
    Outcome outcome;
    if (!passesGate(world, gesture, "Are you sure you want to load a Project before saving current ?",
                    outcome))
        return outcome;
    const QString name = gesture.text("project");
    const QString path = name.isEmpty() ? QString() : world.projectFolder + "/" + name;
    if (!name.isEmpty() && !world.files.contains(path))
        return Impossible;
    outcome.questions.append({Question::OpenFile, {}, {}, {}, path, false});
    if (path.isEmpty() || !loadProject(world, path))
        tell(outcome, "Failed to load the Project's Show.");
    return outcome;
}

Outcome save(World &world, const Gesture &gesture)
{
    Outcome outcome;
    saveProject(world, gesture, outcome);
    return outcome;
}

Outcome exportIt(World &world, const Gesture &gesture)
{
    Outcome outcome;
    if (world.showName.isEmpty())
        tell(outcome, "Nothing to Export. Load a Show");
    else if (isEmpty(world.isMidi ? world.keys : world.pads))
        tell(outcome, "Nothing to Export. Pads are empty");
    else if (world.isMidi)
        exportMapping(world, gesture, outcome);
    else
        exportPage(world, gesture, outcome);
    return outcome;
}

Outcome setOutput(World &world, const Gesture &gesture)
{
    const bool isMidi = gesture.text("output") == "midi";
    world.isMidi = isMidi;
    retick(world);
    showOutput(world, isMidi, isMidi ? "MIDI Mapping" : "Pads Page");
    return {};
}

Outcome setLayout(World &world, const Gesture &gesture)
{
    if (world.isMidi)
        return Impossible;
    world.has16Pads = gesture.number("pads") == 16;
    return {};
}

Outcome setBank(World &world, const Gesture &gesture)
{
    const int bank = gesture.number("index");
    if (world.isMidi || bank < 0 || bank > 7)
        return Impossible;
    if (bank != world.bank) {
        world.bank = bank;
        world.bankField = world.banks.value(bank);
    }
    return {};
}

Outcome nameBank(World &world, const Gesture &gesture)
{
    if (world.isMidi)
        return Impossible;
    while (world.banks.size() <= world.bank) // a project may have brought fewer names
        world.banks.append(QString());
    world.bankField = world.banks[world.bank] = gesture.text("name");
    return {};
}

Outcome namePage(World &world, const Gesture &gesture)
{
    const QString name = gesture.text("name");
    world.pageName = name.isEmpty() ? "OS2L DMX" : name;
    return {};
}

Outcome setPage(World &world, const Gesture &gesture)
{
    const int page = gesture.number("index");
    if (page < 0 || page >= world.pages.size())
        return Impossible;
    world.page = page;
    return {};
}

QMap<QString, Rule> allRules()
{
    QMap<QString, Rule> rules = {
        {"output", setOutput},     {"layout", setLayout},           {"bank", setBank},
        {"name-bank", nameBank},   {"name-page", namePage},         {"page", setPage},
        {"load-show", chooseShow}, {"load-project", chooseProject}, {"save", save},
        {"export", exportIt},      {"new-project", newProject},     {"exit", leave},
        {"close", leave}};
    for (const QMap<QString, Rule> &more : {rulesOfTables(), rulesOfDevices()}) {
        for (auto rule = more.cbegin(); rule != more.cend(); ++rule)
            rules.insert(rule.key(), rule.value());
    }
    return rules;
}

} // namespace

void start(World &world)
{
    World fresh;
    fresh.projectFolder = world.projectFolder;
    fresh.padsFolder = world.padsFolder;
    fresh.mapperFolder = world.mapperFolder;
    fresh.shows = world.shows;
    fresh.devices = world.devices;
    fresh.files = world.files;
    fresh.banks = freshBanks();
    fresh.pageName = "OS2L DMX";
    readMappers(fresh);
    emptyPads(fresh);
    emptyKeys(fresh);
    pickDevice(fresh, 0);
    world = fresh;
}

bool loadShow(World &world, const QString &file)
{
    const auto show = std::find_if(world.shows.cbegin(), world.shows.cend(),
                                   [&file](const Show &each) { return each.file == file; });
    if (show == world.shows.cend() || !show->isReadable)
        return false;
    world.switchRow = world.switchCol = -1;
    world.banks = freshBanks();
    emptyPads(world);
    emptyKeys(world);
    world.pageName = "OS2L DMX";
    world.pages = show->pages;
    world.page = 0;
    world.buttons = show->buttons;
    world.showFile = file;
    world.title = "Zarvex - " + world.showName;
    return true;
}

void showOutput(World &world, bool isMidi, const QString &label)
{
    world.isMidi = isMidi;
    world.width = isMidi ? 1366 : 650;
    world.nameLabel = label;
}

QStringList freshBanks()
{
    QStringList banks;
    for (int bank = 1; bank <= 8; ++bank)
        banks.append("BANK " + QString::number(bank));
    return banks;
}

void tell(Outcome &outcome, const QString &text, const QString &informative)
{
    outcome.questions.append({Question::Box, text, informative, "Ok", "Ok", false});
}

bool mayWrite(const World &world, const QString &path, const QString &what, const Gesture &gesture,
              Outcome &outcome)
{
    if (!world.files.contains(path))
        return true;
    outcome.questions.append({Question::Box, what + " already exists.", "Do you want to overwrite ?",
                              "Yes No", gesture.text("over"), false});
    return gesture.text("over") == "Yes";
}

Outcome focusOn(const char *name)
{
    Outcome outcome;
    outcome.focus = name;
    return outcome;
}

QStringList verbs()
{
    return allRules().keys();
}

Outcome play(World &world, const Gesture &gesture)
{
    static const QMap<QString, Rule> rules = allRules();
    const Rule rule = rules.value(gesture.verb);
    if (!rule)
        return Impossible;
    // A gesture that turns out impossible half way must leave nothing behind.
    World after = world;
    Outcome outcome = rule(after, gesture);
    if (outcome.isPossible)
        world = after;
    return outcome;
}

} // namespace Rules
