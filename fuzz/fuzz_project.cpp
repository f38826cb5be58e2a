// The reader of projects; an input is a project.

#include "fuzz/target.h"
#include "project/projectfile.h"
#include "tables/controller.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QDomDocument>
#include <QTextStream>

#include <algorithm>

namespace {

constexpr int PadRows = 64;
constexpr int GridRows = 12;

/** The settings and both tables of a document. */
struct Project
{
    explicit Project(const QDomDocument &document) : settings(projectSettings(document))
    {
        pads.insertRows(0, PadRows);
        grid.insertRows(0, GridRows);
        layOnPads(document, pads, [this](int) { ++ticks; });
        layOnGrid(document, grid, [this](int) { ++ticks; });
    }

    QList<ProjectSettings> settings;
    VDJModel pads;
    Controller grid;
    int ticks = 0;
};

QByteArray written(const Project &project)
{
    const ProjectSettings settings = project.settings.value(0);
    QByteArray bytes;
    QTextStream out(&bytes);
    out.setCodec("UTF-8");
    if (settings.isMidi)
        writeProject(out, MidiProject{settings.device, settings.show, settings.showName, settings.switchKey,
                                      settings.offColor.value_or(-1), settings.onColor.value_or(-1),
                                      settings.exportName, project.grid});
    else
        writeProject(out, PadsProject{settings.show, settings.showName, settings.exportName,
                                      settings.has16Pads, settings.banks, project.pads});
    out.flush();
    return bytes;
}

/** Texts go out unescaped, so some make a project that does not come back, or not with its line ends. */
bool isSafe(const QString &text)
{
    return std::none_of(text.cbegin(), text.cend(),
                        [](QChar sign) { return QStringLiteral("\"&<\r").contains(sign) || sign.isNull(); });
}

bool isSafe(const ProjectSettings &settings)
{
    return isSafe(settings.show + settings.showName + settings.banks.join(",") + settings.exportName
                  + settings.device);
}

bool isSafe(const QAbstractItemModel &table)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            for (int role = PageRole; role <= BlinkRole; ++role) {
                if (!isSafe(table.index(row, column).data(role).toString()))
                    return false;
            }
            if (!isSafe(table.index(row, column).data(Qt::EditRole).toString()))
                return false;
        }
    }
    return true;
}

QDomDocument read(const QByteArray &bytes)
{
    const ScratchFile file(bytes);
    const auto document = readProject(file.path());
    expect(document.has_value(), "a project of this size is read");
    return *document;
}

} // namespace

void tryInput(const QByteArray &input)
{
    const QDomDocument document = read(input);
    const Project project(document);
    for (const ProjectSettings &settings : project.settings)
        expect(settings.switchKey.size() == 2, "the Switch has a row and a column");
    expect(project.pads.getlist().size() == PadRows && project.grid.getlist().size() == GridRows,
           "laying cells on a table does not change its size");
    const int keys = document.elementsByTagName("key").size();
    expect(project.ticks == 2 * keys, "each cell asks for a tick on each table");

    if (project.settings.size() != 1 || !isSafe(project.settings.first()))
        return;
    if (!isSafe(project.settings.first().isMidi ? static_cast<const QAbstractItemModel &>(project.grid)
                                                : project.pads))
        return;
    const QByteArray bytes = written(project);
    expect(written(Project(read(bytes))) == bytes,
           "a project that is read, written and read again is the same");
}
