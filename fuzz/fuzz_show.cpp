// The reader of shows; an input is a live.ini.

#include "files/inifile.h"
#include "fuzz/target.h"
#include "show/liveshow.h"

#include <QSettings>

#include <algorithm>

namespace {

constexpr int MostMissing = 50000;

bool isColor(const QString &text)
{
    if (text == QLatin1String("#ffffff"))
        return true;
    const auto isUpperDigit = [](QChar sign) {
        return (sign >= '0' && sign <= '9') || (sign >= 'A' && sign <= 'F');
    };
    return text.size() >= 7 && text.at(0) == '#' && std::all_of(text.cbegin() + 1, text.cend(), isUpperDigit);
}

/** Whether so many records are made that it takes long, up to a second; few such inputs are enough. */
bool takesTooLong(const QByteArray &input, const QSettings &settings)
{
    int largest = 0;
    for (const QString &key : settings.allKeys()) {
        if (key.endsWith("number") || key.endsWith("nb_buttons"))
            largest = qMax(largest, settings.value(key).toInt());
    }
    return largest > 300 && qChecksum(input.constData(), static_cast<uint>(input.size())) % 50 != 0;
}

/** How many records hold nothing of the file, or by chance say the same as one that does not. */
int countMissing(const LiveShow &show)
{
    const auto isMissingPage = [](const Record &page) { return page.size() == 1; };
    const auto isMissingButton = [](const Record &button) { return button.size() == 4; };
    return int(std::count_if(show.pages.cbegin(), show.pages.cend(), isMissingPage)
               + std::count_if(show.buttons.cbegin(), show.buttons.cend(), isMissingButton));
}

void expectButton(const Record &button, int number)
{
    expect(button.value("buttonid") == QString::number(number), "a button's number is its place in the show");
    expect(button.contains("pageid") && button.contains("check"), "a button has a page and a tick");
    expect(isColor(button.value("color")), "a button's colour is a hash and six digits or more");
}

} // namespace

void tryInput(const QByteArray &input)
{
    const ScratchFile file(input);
    if (!isHarmlessIni(input)) {
        expect(!readLiveShow(file.path()), "what could harm is not read");
        return;
    }
    const QSettings settings(file.path(), QSettings::IniFormat);
    if (takesTooLong(input, settings))
        return;
    const auto read = readLiveShow(file.path());
    expect(read.has_value(), "what is harmless is read");
    const LiveShow &show = *read;

    const Record allPages = {{"pageid", "0"}, {"name", "All Pages"}};
    expect(show.pages.value(0) == allPages, "the first page is All Pages");
    for (const Record &page : show.pages)
        expect(page.contains("pageid"), "a page has a number");
    const int pages = qMax(0, settings.value("page/number").toInt());
    expect(show.pages.size() == pages + 1 || (pages > MostMissing && show.pages.size() <= pages),
           "there are as many pages as the file counts, up to a limit");

    for (int number = 0; number < show.buttons.size(); ++number)
        expectButton(show.buttons.at(number), number);
    expect(countMissing(show) <= MostMissing + input.size(), "a damaged count cannot fill the memory");
}
