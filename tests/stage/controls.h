#pragma once

#include "stage/virtualdj.h"

namespace Stage {

/** A key or fader of a controller, by the layout that the program brings. */
struct Control
{
    QString kind; ///< "pad", "button", "slider", "ignore" or "empty"
    QString name;
    QString led;  ///< empty for a control without a LED
    bool isPlain; ///< whether its LED knows on and off alone
    int row;      ///< of the program's grid
    int column;
    QString place; ///< in the plan: "pad 3 7", "across 5", "right 2", "left 1", "slider 1", or empty
};

/** The controls of a device by its file's base name, in the order of its layout. */
QList<Control> controlsOf(const QString &device);

/** The mapper that the program brings for a device. */
MapperFile factoryMapperOf(const QString &device);

/** A controller with a mapper, plugged into VirtualDJ. */
class Hardware final
{
public:
    Hardware(VirtualDj &dj, MapperFile mapper) : m_dj(dj), m_mapper(std::move(mapper)) {}

    QString scriptOf(const QString &name) const { return m_mapper.scripts.value(name); }
    void press(const QString &key) { m_dj.perform(scriptOf(key), {Gesture::Press, 1}); }
    void release(const QString &key) { m_dj.perform(scriptOf(key), {Gesture::Release, 0}); }
    void tap(const QString &key)
    {
        press(key);
        release(key);
    }
    /** @param value  place of the fader, 0 to 1 */
    void move(const QString &fader, double value) { m_dj.perform(scriptOf(fader), {Gesture::Move, value}); }
    QString led(const QString &name) { return m_dj.ledOf(scriptOf(name)); }

private:
    VirtualDj &m_dj;
    MapperFile m_mapper;
};

} // namespace Stage
