#include "stock.h"

#include "support/files.h"
#include "support/workspace.h"

#include <QDir>

using Rules::Button;
using Rules::Show;

namespace {

const char Club[] = R"([page]
number=2
[page1]
name=Floor
nb_buttons=6
[page1_button1]
title=Strobe
color=16711680
[page1_button2]
title=Blackout
color=0
[page1_button3]
title=Warm, slow
color=255
[page1_button4]
title=Fog
color=43690
[page1_button5]
title=Laser
color=11259375
[page1_button6]
title=Sweep
[page2]
name=Stage
nb_buttons=3
[page2_button1]
title=Strobe
color=16777215
[page2_button2]
title=Spot
color=1
[page2_button3]
title=Mover
color=1193046
)";

const QVector<Button> ClubButtons = {
    {"Strobe", "1", "#FF0000"}, {"Blackout", "1", "#000000"}, {"Warm, slow", "1", "#0000FF"},
    {"Fog", "1", "#00AAAA"},    {"Laser", "1", "#ABCDEF"},    {"Sweep", "1", "#ffffff"},
    {"Strobe", "2", "#FFFFFF"}, {"Spot", "2", "#000001"},     {"Mover", "2", "#123456"}};

const char Odd[] = R"([page]
number=4
[page1]
nb_buttons=5
[page1_button1]
title=It's
color=65280
[page1_button2]
title=R&B
color=8421504
[page1_button3]
title=On : Off ? Yes
color=128
[page1_button5]
color=9
[page2]
name=Nothing here
[page4]
name=Signs
nb_buttons=3
[page4_button1]
title=a < b
color=3
[page4_button2]
title=Blau \xfc
color=32768
[page4_button3]
title=Say \"go\"
color=7
)";

const QVector<Button> OddButtons = {{"It's", "1", "#00FF00"},
                                    {"R&B", "1", "#808080"},
                                    {"On : Off ? Yes", "1", "#000080"},
                                    {"", "1", "#ffffff"},
                                    {"", "1", "#000009"},
                                    {"a < b", "4", "#000003"},
                                    {QString("Blau ") + QChar(0xfc), "4", "#008000"},
                                    {"Say \"go\"", "4", "#000007"}};

/** Has LED rows for some buttons only, and what an export of the program wraps around scripts. */
const char OwnAkai[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<mapper device="APCMINI" author="me">
	<map value="ROW1_PAD1" action="play_pause"/>
	<map value="ROW1_PAD1" action="var &apos;$os2l&apos; ? os2l_button &apos;Old&apos; : cue"/>
	<map value="LED_ROW1_PAD1" action="var &apos;$os2l&apos; ? os2l_button &apos;Old&apos; ? on : off : cue ? on : off"/>
	<map value="ROW1_PAD2" action="var &apos;$os2l&apos; ? nothing : stop"/>
	<map value="LED_ROW1_PAD2" action="var &apos;$os2l&apos; ? os2l_button &apos;Old&apos; ? on : off : stop"/>
	<map value="ROW2_PAD2" action="toggle &apos;$os2l&apos;"/>
	<map value="ROW3_PAD3" action="var &apos;$os2l&apos; ? nothing"/>
	<map value="LED_ROW4_PAD4" action="color 'red' &amp; blink"/>
	<map value="UP" action="loop_double"/>
	<map value="RIGHT" action="var &quot;$x&quot; 1 ? a &amp; b : c"/>
	<map value="LED_LEFT" action="loop"/>
	<map value="MUTE" action="mute"/>
	<map value="LED_STOP_ALL_CLIPS" action="get_vu"/>
	<map value="SLIDER1" action="volume"/>
	<map value="SHIFT" action="shift"/>
</mapper>
)";

const char OwnPro[] = R"(<mapper device="LAUNCHPADPRO"><map value="PAD_1_1" action="hot_cue 1"/></mapper>)";
const char Strange[] = R"(<mapper device="NOSUCH"><map value="A" action="b"/></mapper>)";
const char Broken[] = R"(<mapper device="APCMINI"><map value="A" action="R&B"/></mapper>)";

/** @param rest  attributes of the project behind those of the show */
QString project(const QString &show, const QString &rest, const QString &keys)
{
    return "<project show=\"" + show + "\" showname=\"By hand\" " + rest + " >\n" + keys + "</project>\n";
}

QMap<QString, QString> projects(const QString &club, const QString &locked)
{
    const QString key = "<key row=\"3\" column=\"4\" name=\"Fog\" dspname=\"Fog\" pagenr=\"1\" id=\"3\" ";
    const QString led = "avail=\"1\" coloroff=\"red\" coloron=\"\" blink=\"1\" color=\"#00aaaa\" />\n";
    const QString pad =
        "<key row=\"9\" column=\"1\" name=\"\" dspname=\"Spot\" pagenr=\"2\" id=\"7\" color=\"#000001\" />\n";
    const QString outside =
        "<key row=\"64\" column=\"0\" name=\"x\" dspname=\"x\" pagenr=\"1\" id=\"2\" color=\"\" />\n";
    const QString midi = "type=\"midi\" export=\"Hand\" ";
    const QString pads = "type=\"pads\" export=\"Hand\" ";
    return {
        {"no device.zarvex", project(club, midi + "deviceid=\"NOSUCH\" switch=\"2,2\"", key + led)},
        {"far colors.zarvex",
         project(club, midi + "deviceid=\"APCMINI\" switch=\"3\" offcolor=\"99\" oncolor=\"2\"", key + led)},
        {"rgb.zarvex", project(club, midi + "deviceid=\"LAUNCHPADPRO\" offcolor=\"1\"", key + led)},
        {"three banks.zarvex", project(club, pads + "layout=\"1\" banks=\"One,,Three\"", pad + outside)},
        {"no show.zarvex", project(club + "x", pads + "layout=\"1\"", pad)},
        {"locked show.zarvex", project(locked, pads + "layout=\"0\"", pad)},
        {"broken.zarvex", "<project type=\"midi\"\n"},
        {"empty.zarvex", "<projects>\n</projects>\n"},
        {"two.zarvex", "<projects>\n" + project(club, midi + "deviceid=\"NLMINIMK3\"", key + led)
                           + project(club, pads + "layout=\"0\"", pad) + "</projects>\n"},
    };
}

void put(Rules::World &world, const QString &path, const QString &text)
{
    if (!writeFile(path, asWritten(text.toUtf8())))
        qFatal("cannot write %s", qPrintable(path));
    world.files.insert(path, text);
}

/** A show whose settings file is a folder: it is there and cannot be opened. */
Show lockedShow(const Workspace &space)
{
    const QString file = space.home() + "/Locked/Live/live.ini";
    QDir().mkpath(file);
    return {"Locked", file, true, false, {}, {}};
}

Show emptyFolder(const Workspace &space)
{
    QDir().mkpath(space.home() + "/Hollow");
    return {"Hollow", space.home() + "/Hollow/Live/live.ini", false, false, {}, {}};
}

Show written(Workspace &space, const QString &name, const char *ini, const QStringList &pages,
             const QVector<Button> &buttons)
{
    return {name, space.writeShow(name, ini) + "/Live/live.ini", true, true, pages, buttons};
}

} // namespace

void Stock::lay(Workspace &space, Rules::World &world)
{
    world.projectFolder = space.documents() + "/Zarvex/projects";
    world.padsFolder = space.padsFolder();
    world.mapperFolder = space.mappersFolder();
    QDir().mkpath(world.projectFolder);
    world.shows = {written(space, "Club", Club, {"All Pages", "Floor", "Stage"}, ClubButtons),
                   written(space, "Odd", Odd, {"All Pages", "", "Nothing here", "", "Signs"}, OddButtons),
                   written(space, "Pageless", "[other]\na=1\n", {"All Pages"}, {}), lockedShow(space),
                   emptyFolder(space)};
    const auto byHand = projects(world.shows.at(0).file, world.shows.at(3).file);
    for (auto file = byHand.cbegin(); file != byHand.cend(); ++file)
        put(world, world.projectFolder + "/" + file.key(), file.value());
    put(world, world.mapperFolder + "/own.akai.xml", OwnAkai);
    put(world, world.mapperFolder + "/Own pro.xml", OwnPro);
    put(world, world.mapperFolder + "/strange.xml", Strange);
    put(world, world.mapperFolder + "/broken.xml", Broken);
    world.devices = Rules::readDevices();
    Rules::start(world);
}
