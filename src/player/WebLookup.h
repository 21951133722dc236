// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace quaverly {

class Desktop;
class OptionsStore;

/** The names of a song, as the record editor shows them. */
struct LookupSong
{
    QString artist;
    QString songName;
    QString album;
};

/** Sends a song to the web search; whether a browser takes it is not looked at. */
class WebLookup final
{
public:
    WebLookup(Desktop &desktop, const OptionsStore &store) : m_desktop(desktop), m_store(store) {}

    void cmdWebLookup_Click(const LookupSong &song) const;
    void mnuWebLookupLyrics_Click(const LookupSong &song) const;
    /** The album's art, or the song's where there is no album. */
    void mnuWebLookupImages_Click(const LookupSong &song) const;
    void mnuWebLookupCoverVersions_Click(const LookupSong &song) const;

private:
    void open(const QString &query, const QString &words) const;

    Desktop &m_desktop;
    const OptionsStore &m_store;
};

} // namespace quaverly
