// The reader of projects; an input is a project.

#include "fuzz/target.h"
#include "project/projectfile.h"
#include "tables/controller.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QTextStream>

#include <algorithm>

namespace {

constexpr int PadRows = 64;
constexpr int GridRows = 12;

/** The settings and both tables of a project. */
struct LaidOut
{
    explicit LaidOut(const Project &project) : settings(project.settings)
    {
        pads.insertRows(0, PadRows);
        grid.insertRows(0, GridRows);
        layOnPads(project, pads, [this](int) { ++ticks; });
        layOnGrid(project, grid, [this](int) { ++ticks; });
    }

    QList<ProjectSettings> settings;
    VDJModel pads;
    Controller grid;
    int ticks = 0;
};

QByteArray written(const LaidOut &laid)
{
    const ProjectSettings settings = laid.settings.value(0);
    QByteArray bytes;
    QTextStream out(&bytes);
    out.setCodec("UTF-8");
    writeProject(out, settings,
                 settings.isMidi ? cellsOf(laid.grid, CellFields::ofKeys())
                                 : cellsOf(laid.pads, CellFields::ofPads()));
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

Project read(const QByteArray &bytes)
{
    const ScratchFile file(bytes);
    const auto project = readProject(file.path());
    expect(project.has_value(), "a project of this size is read");
    return *project;
}

} // namespace

void tryInput(const QByteArray &input)
{
    const Project project = read(input);
    const LaidOut laid(project);
    expect(laid.pads.getlist().size() == PadRows && laid.grid.getlist().size() == GridRows,
           "laying cells on a table does not change its size");
    expect(laid.ticks == 2 * project.cells.size(), "each cell asks for a tick on each table");

    if (laid.settings.size() != 1 || !isSafe(laid.settings.first()))
        return;
    if (!isSafe(laid.settings.first().isMidi ? static_cast<const QAbstractItemModel &>(laid.grid)
                                             : laid.pads))
        return;
    const QByteArray bytes = written(laid);
    expect(written(LaidOut(read(bytes))) == bytes,
           "a project that is read, written and read again is the same");
}
