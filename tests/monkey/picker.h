#pragma once

#include "rules.h"

#include <random>

/** Picks what the monkey does next. The same seed gives the same gestures on every machine. */
class Picker final
{
public:
    explicit Picker(quint32 seed) : m_random(seed) {}

    /** A gesture that is possible now. */
    Gesture next(const Rules::World &world);

private:
    int below(int end) { return static_cast<int>(m_random() % static_cast<quint32>(end)); }
    bool oneIn(int times) { return below(times) == 0; }
    QString any(const QStringList &texts) { return texts.at(below(texts.size())); }

    QString pad(const Rules::World &world);
    QString filledPad(const Rules::World &world);
    QString key(const Rules::World &world);
    QString filledKey(const Rules::World &world);
    QString someButton(const Rules::World &world);
    Gesture pick(const Rules::World &world);
    Gesture onPads(const Rules::World &world);
    Gesture onKeys(const Rules::World &world);
    Gesture keyMenu(const Rules::World &world);
    Gesture onPanels(const Rules::World &world);
    Gesture onDevices(const Rules::World &world);
    Gesture command(const Rules::World &world);
    Gesture load(const Rules::World &world);

    std::mt19937 m_random;
};
