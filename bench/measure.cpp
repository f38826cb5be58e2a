#include "measure.h"

#include <QTextStream>

#include <algorithm>
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

void Measure::Report::line(const QString &what, const Pair &pair, int limit, double allowed)
{
    const bool isOver = pair.ours > std::max(limit * pair.reference, allowed);
    m_isOver = m_isOver || isOver;

    QString most = QString::number(limit) + " x";
    if (allowed > 0)
        most += " or " + duration(allowed);
    QTextStream(stdout) << what << '\t' << duration(pair.reference) << '\t' << duration(pair.ours) << '\t'
                        << rounded(pair.ours / pair.reference) << " x\t" << most << '\t'
                        << (isOver ? "OVER" : "ok") << Qt::endl;
}
