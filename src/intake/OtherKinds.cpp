// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/OtherKinds.h"

#include <QLatin1StringView>
#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr std::array Companions{
    "jpg"_L1, "jpeg"_L1, "png"_L1,  "gif"_L1,  "bmp"_L1,     "webp"_L1,      "tif"_L1, "tiff"_L1, "ico"_L1,
    "txt"_L1, "rtf"_L1,  "pdf"_L1,  "doc"_L1,  "docx"_L1,    "odt"_L1,       "htm"_L1, "html"_L1, "url"_L1,
    "xml"_L1, "json"_L1, "m3u"_L1,  "m3u8"_L1, "pls"_L1,     "xspf"_L1,      "wpl"_L1, "cue"_L1,  "log"_L1,
    "nfo"_L1, "md5"_L1,  "sfv"_L1,  "ffp"_L1,  "accurip"_L1, "lrc"_L1,       "ini"_L1, "db"_L1,   "dat"_L1,
    "csv"_L1, "tmp"_L1,  "part"_L1, "bak"_L1,  "mdb"_L1,     "directory"_L1,
};

constexpr std::size_t MostTold = 8;
constexpr qsizetype LongestEnding = 10;

} // namespace

void OtherKinds::count(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    const QString ending = dot <= 0 ? QString() : fileName.sliced(dot + 1).toLower();
    if (!ending.isEmpty() && ending.size() <= LongestEnding &&
        std::ranges::find(Companions, ending) == Companions.end())
        ++m_counts[ending];
}

QString OtherKinds::sentence() const
{
    std::vector<std::pair<int, QString>> kinds;
    int files = 0;
    for (auto kind = m_counts.cbegin(); kind != m_counts.cend(); ++kind) {
        kinds.emplace_back(-kind.value(), kind.key());
        files += kind.value();
    }
    if (files == 0)
        return {};
    std::ranges::sort(kinds);
    QStringList parts;
    int rest = files;
    for (std::size_t i = 0; i < std::min(MostTold, kinds.size()); ++i) {
        parts.append(QString::number(-kinds[i].first) + u" ."_s + kinds[i].second);
        rest += kinds[i].first;
    }
    if (rest > 0)
        parts.append(QString::number(rest) + u" others"_s);
    return QString::number(files) + (files == 1 ? u" file"_s : u" files"_s) + u" of other kinds: "_s +
           parts.join(u", "_s) + u'.';
}

} // namespace quaverly
