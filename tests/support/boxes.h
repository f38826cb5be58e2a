#pragma once

#include "support/workspace.h"

/** The message boxes and dialogs of the program, and all that stands in them. */
namespace Boxes {

using Answer = QMessageBox::StandardButton;
using Box = ExpectedDialogs::Box;
using Color = ExpectedDialogs::Color;
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
inline Box overwrite(const QString &what, Answer answer)
{
    return {what + " already exists.", "Do you want to overwrite ?", QMessageBox::Yes | QMessageBox::No,
            QMessageBox::No, answer};
}

/** The question before something replaces work that is not saved. */
inline Box overWork(const QString &question, Answer answer)
{
    return {question,
            {},
            QMessageBox::Save | QMessageBox::Yes | QMessageBox::Cancel,
            QMessageBox::Cancel,
            answer};
}

inline Box showOverWork(Answer answer)
{
    return overWork("Are you sure you want to open a new Show \nbefore saving current Project ?", answer);
}

inline Box projectOverWork(Answer answer)
{
    return overWork("Are you sure you want to load a Project before saving current ?", answer);
}

inline Box leaving(Answer answer)
{
    return {"Project is not empty.", "Are you sure you want to exit ?",
            QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel, answer};
}

inline Box projectSaved(const QString &name)
{
    return {"Project " + name + " is saved.", {}};
}

inline Box projectNotSaved(const QString &name)
{
    return {"Project " + name + " was not saved.", {}};
}

inline Box loadFailed()
{
    return {"Failed to load the Project's Show.", {}};
}

inline const Box ExportWithoutShow = {"Nothing to Export. Load a Show", {}};
inline const Box ExportOfNothing = {"Nothing to Export. Pads are empty", {}};
inline const Box SaveWithoutShow = {"Nothing to Save. Load a Show", {}};
inline const Box SaveOfNothing = {"Nothing to Save. Pads are empty", {}};

/** Tells that a folder is no show; the one box without the style. */
inline const Box NoShowThere = {
    "LightShow Settings file not found. Please select a different LightShow Folder",
    {},
    QMessageBox::Ok,
    QMessageBox::Ok,
    QMessageBox::Ok,
    "Zarvex",
    QMessageBox::Warning,
    false};

// Captions of the file dialogs.
inline const QString SelectShow = "Select a Show";
inline const QString SelectProject = "Select a Zarvex Project";
inline const QString NameProject = "Save your Zarvex Project";

/** Where "Load DMX Show" asks for a folder. */
inline File showDialog(const Workspace &space, const QString &path)
{
    return {SelectShow, space.showsFolder(), path, {}, true};
}

/** Where "Save Project" asks for a file. */
inline File saveDialog(const Workspace &space, const QString &path)
{
    return {NameProject, space.documents() + "/Zarvex/projects", path, {"Zarvex Projects (*.zarvex)"}};
}

/** Where "Load Project" asks for a file. */
inline File loadDialog(const Workspace &space, const QString &path)
{
    return {SelectProject, space.documents() + "/Zarvex/projects", path, {"Zarvex Projects (*.zarvex)"}};
}

inline Color colorDialog(const QColor &initial, const QColor &answer)
{
    return {"Choose a Color", initial, answer};
}

} // namespace Boxes
