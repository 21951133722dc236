// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/WebLookup.h"
#include "platform/options/OptionsStore.h"
#include "support/ScriptedDesktop.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quaverly::test {

TEST(WebLookup, SendsTheSongsNames)
{
    const QTemporaryDir folder;
    OptionsStore store(folder.filePath(u"options.ini"_s));
    store.SaveSetting(QString::fromUtf16(OptionsSection), u"Search Site"_s, u"https://search.example"_s);
    ScriptedDesktop desktop;
    const WebLookup lookup(desktop, store);
    const LookupSong song{u" Sun & Moon "_s, u"The Tide"_s, u"  "_s};
    lookup.cmdWebLookup_Click(song);
    lookup.mnuWebLookupLyrics_Click(song);
    lookup.mnuWebLookupImages_Click(song);
    lookup.mnuWebLookupImages_Click({u"Abba"_s, u"Tiger"_s, u"The Album"_s});
    lookup.mnuWebLookupCoverVersions_Click(song);
    lookup.cmdWebLookup_Click({{}, u"Tiger"_s, {}});
    lookup.cmdWebLookup_Click({u"夜に駆ける"_s, u"50% of #1?"_s, {}});
    const QString images = u"newwindow=1&site=imghp&tbm=isch&source=hp&q=album+art+"_s;
    const QStringList queries{u"newwindow=1&q=Sun+%26+Moon+The+Tide"_s,
                              u"newwindow=1&q=song+lyrics+for+The+Tide+Sun+%26+Moon"_s,
                              images + u"Sun+%26+Moon+The+Tide"_s,
                              images + u"Abba+The+Album"_s,
                              u"newwindow=1&q=cover+song+The+Tide"_s,
                              u"newwindow=1&q=+Tiger"_s,
                              u"newwindow=1&q="_s +
                                  QString::fromLatin1(QUrl::toPercentEncoding(u"夜に駆ける"_s)) +
                                  u"+50%25+of+#1?"_s};
    ASSERT_EQ(desktop.urls().size(), queries.size());
    for (qsizetype i = 0; i < queries.size(); ++i)
        EXPECT_EQ(desktop.urls().at(i).toString(QUrl::FullyEncoded),
                  u"https://search.example/search?"_s + queries.at(i));
}

} // namespace quaverly::test
