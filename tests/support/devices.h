#pragma once

#include <QStringList>
#include <QVector>

/** The controllers by their places in the program's list. A new one takes its place here. */
namespace Devices {

constexpr int Akai = 0;
constexpr int MiniMk3 = 1;
constexpr int Mini = 2;
constexpr int Mk2 = 3;
constexpr int Pro = 4;
constexpr int S = 5;
constexpr int Classic = 6;

inline const QStringList Names = {"AKAI APC Mini",           "Novation Launchpad Mini MK3",
                                  "Novation Launchpad Mini", "Novation Launchpad MKII",
                                  "Novation Launchpad PRO",  "Novation Launchpad S",
                                  "Novation Launchpad"};
inline const QStringList Identifiers = {"APCMINI",      "NLMINIMK3",  "LAUNCHPADMINI", "LAUNCHPAD2",
                                        "LAUNCHPADPRO", "LAUNCHPADS", "LAUNCHPAD"};

inline const QStringList AkaiPalette = {"black", "green", "red", "yellow"};
inline const QStringList ClassicPalette = {"#000000", "#550000", "#AA0000", "#FF0000", "#005500", "#00AA00",
                                           "#00FF00", "#555500", "#AA5500", "#FF5500", "#55AA00", "#AAAA00",
                                           "#FFAA00", "#55FF00", "#AAFF00", "#FFFF00"};
/** Empty where the device takes any colour. */
inline const QVector<QStringList> Palettes = {AkaiPalette,   {}, ClassicPalette, {}, {}, ClassicPalette,
                                              ClassicPalette};
/** Default colours by their places in the palette. */
inline const QVector<int> OffColors = {3, 0, 0, 0, 0, 0, 0};
inline const QVector<int> OnColors = {1, 0, 3, 0, 0, 3, 3};

} // namespace Devices
