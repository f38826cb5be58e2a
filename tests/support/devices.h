#pragma once

#include <QStringList>

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

} // namespace Devices
