#pragma once

#include <QStringList>

#include <functional>
#include <limits>
#include <vector>

/**
 * Times, and the lines of the table that bench/run prints.
 *
 * A time is processor time, user and system together, so that other work on the machine counts little. Two
 * things to compare are timed in turns, so that what is left of it meets both.
 */
namespace Measure {

/** Processor seconds that this process has used up to now. */
double processorSeconds();

/** Median of the values, of which there is at least one. */
double median(std::vector<double> values);

/** Medians of two things that were measured in turns; seconds unless told otherwise. */
struct Pair
{
    double reference;
    double ours;
};

/**
 * Times two things in turns, after one turn each that does not count.
 *
 * @param turns      how often each counts
 * @param reference  does the one and gives its seconds
 * @param ours       does the other and gives its seconds
 */
Pair inTurns(int turns, const std::function<double()> &reference, const std::function<double()> &ours);

/** The limit of a line that is there to be looked at only. */
constexpr double NoLimit = std::numeric_limits<double>::infinity();

/** The lines of one benchmark; they are printed with tabs between the columns. */
class Report final
{
public:
    /**
     * Prints a line.
     *
     * @param what     what was timed
     * @param pair     the times
     * @param limit    how many times the reference ours may take, or NoLimit
     * @param allowed  seconds that ours may take in any case
     */
    void line(const QString &what, const Pair &pair, double limit, double allowed = 0);
    /** The same for memory, in megabytes. */
    void memoryLine(const QString &what, const Pair &pair, double limit);
    /** 0, or 1 where a line was over its limit. */
    int exitStatus() const { return m_isOver ? 1 : 0; }

private:
    void print(const QStringList &columns, bool isLimited, bool isOver);

    bool m_isOver = false;
};

} // namespace Measure
