#pragma once

#include "support/workspace.h"

/** The message boxes and file dialogs that several tests expect. */
namespace Boxes {

using Box = ExpectedDialogs::Box;
using File = ExpectedDialogs::File;

inline Box pageCreated(const QString &page)
{
    return {"Pads Page " + page + " is created.", "Select it from VirtualDJ Pads dropdown"};
}

inline Box mappingCreated(const QString &page, const QString &device)
{
    return {"Mapping " + page + " for " + device + " is created.",
            "Select it from Controllers tab of VirtualDJ Settings."};
}

/** @param what  "Pads Page <name>", "<device> - <name> mapping" or "Project <name>" */
inline Box overwrite(const QString &what, QMessageBox::StandardButton answer)
{
    return {what + " already exists.", "Do you want to overwrite ?", QMessageBox::Yes | QMessageBox::No,
            QMessageBox::No, answer};
}

inline Box showOverWork(QMessageBox::StandardButton answer)
{
    return {"Are you sure you want to open a new Show \nbefore saving current Project ?",
            {},
            QMessageBox::Save | QMessageBox::Yes | QMessageBox::Cancel,
            QMessageBox::Cancel,
            answer};
}

inline Box projectOverWork(QMessageBox::StandardButton answer)
{
    return {"Are you sure you want to load a Project before saving current ?",
            {},
            QMessageBox::Save | QMessageBox::Yes | QMessageBox::Cancel,
            QMessageBox::Cancel,
            answer};
}

inline Box projectSaved(const QString &name)
{
    return {"Project " + name + " is saved.", {}};
}

inline Box loadFailed()
{
    return {"Failed to load the Project's Show.", {}};
}

/** Where "Save Project" asks for a file. */
inline File saveDialog(const Workspace &space, const QString &path)
{
    return {"Save your Zarvex Project",
            space.documents() + "/Zarvex/projects",
            path,
            {"Zarvex Projects (*.zarvex)"}};
}

/** Where "Load Project" asks for a file. */
inline File loadDialog(const Workspace &space, const QString &path)
{
    return {"Select a Zarvex Project",
            space.documents() + "/Zarvex/projects",
            path,
            {"Zarvex Projects (*.zarvex)"}};
}

} // namespace Boxes
