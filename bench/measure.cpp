#include "measure.h"

#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

QString rounded(double number)
{
    return QString::number(number, 'f', number < 10 ? 2 : 1);
}

QString duration(double seconds)
{
    if (seconds < 1e-6)
        return rounded(seconds * 1e9) + " ns";
    if (seconds < 1e-3)
        return rounded(seconds * 1e6) + " us";
    if (seconds < 1)
        return rounded(seconds * 1e3) + " ms";
    return rounded(seconds) + " s";
}

QString times(double limit)
{
    return std::isinf(limit) ? QString("none") : QString::number(limit) + " x";
}

} // namespace

double Measure::processorSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

double Measure::median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return (values.at((values.size() - 1) / 2) + values.at(values.size() / 2)) / 2;
}

Measure::Pair Measure::inTurns(int turns, const std::function<double()> &reference,
                               const std::function<double()> &ours)
{
    reference();
    ours();
    std::vector<double> ofReference;
    std::vector<double> ofOurs;
    for (int turn = 0; turn < turns; ++turn) {
        ofReference.push_back(reference());
        ofOurs.push_back(ours());
    }
    return {median(ofReference), median(ofOurs)};
}

void Measure::Report::line(const QString &what, const Pair &pair, double limit, double allowed)
{
    QString most = times(limit);
    if (allowed > 0)
        most += " or " + duration(allowed);
    print({what, duration(pair.reference), duration(pair.ours), rounded(pair.ours / pair.reference) + " x",
           most},
          !std::isinf(limit), pair.ours > std::max(limit * pair.reference, allowed));
}

void Measure::Report::memoryLine(const QString &what, const Pair &pair, double limit)
{
    print({what, rounded(pair.reference) + " MB", rounded(pair.ours) + " MB",
           rounded(pair.ours / pair.reference) + " x", times(limit)},
          !std::isinf(limit), pair.ours > limit * pair.reference);
}

void Measure::Report::print(const QStringList &columns, bool isLimited, bool isOver)
{
    m_isOver = m_isOver || isOver;
    const QString result = isOver ? "OVER" : isLimited ? "ok" : "-";
    QTextStream(stdout) << columns.join('\t') << '\t' << result << Qt::endl;
}
