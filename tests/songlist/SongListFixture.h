// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/ScriptedDesktop.h"
#include "support/store/FakeMainScreen.h"
#include "support/store/StoreFixture.h"

namespace quaverly::test {

/** A main screen over a catalogue of seven songs, two of them in the category Jazz, as it stands once it is
 * up. */
class SongList : public ::testing::Test
{
protected:
    using S = QString;

    void SetUp() override
    {
        using namespace Qt::StringLiterals;
        const auto add = [this](const S &name, const S &artist, const S &album, double megabytes) {
            return store.addSong(
                Song(name, artist).with(u"AlbumName"_s, album).with(u"FileSizeNum"_s, megabytes));
        };
        queen = add(u"Dancing Queen"_s, u"Abba"_s, u"Arrival"_s, 4.5);
        sos = add(u"SOS"_s, u"Abba"_s, u"Abba"_s, 3.25);
        imagine = add(u"Imagine"_s, u"John Lennon"_s, u"Imagine"_s, 1000);
        add(u"Say \"Hi\""_s, u"The \"Hi\" Boys"_s, {}, 0);
        add(u"Mrs & Mr"_s, u"Simon & Garfunkel"_s, {}, 0);
        add(u"Untitled"_s, {}, {}, 0);
        add(u"Order By Mail"_s, u"Order By Band"_s, {}, 0);
        jazz = store.addCategory(u"Jazz"_s, {queen, imagine});
        list = store.addPlayList(u"Party"_s, {sos, imagine, sos});
        load();
    }
    /** As the main screen does at its loading and first activation. */
    void load()
    {
        set.openAtLoad();
        set.openAtFirstActivation();
    }
    DataControl &data() { return set.Data1(); }
    /** Names of the songs displayed, in their order. */
    QStringList names()
    {
        QStringList result;
        const int field = data().Recordset().fieldIndex(QStringLiteral("SongName"));
        for (qint64 row = 0; row < rows(); ++row)
            result.append(data().Recordset().valueAt(row, field).toString());
        return result;
    }
    qint64 rows() { return data().Recordset().RecordCount(); }
    S current() { return data().currentText(QStringLiteral("SongName")); }
    void mark(qint64 song)
    {
        ASSERT_TRUE(data().findRecord(song));
        set.toggleMark();
    }

    StoreFixture store;
    ScriptedDesktop desktop;
    DisplayedSet set{store.catalogue(), store.settings(), desktop};
    FakeMainScreen screen{&set};
    qint64 queen = 0, sos = 0, imagine = 0, jazz = 0, list = 0;
};

} // namespace quaverly::test
