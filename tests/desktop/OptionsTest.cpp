// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/options/Folders.h"
#include "platform/options/OptionsStore.h"
#include "platform/store/DaoError.h"
#include "support/Files.h"

#include <QTemporaryDir>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

const auto Section = QString::fromUtf16(OptionsSection);

class Options : public ::testing::Test
{
protected:
    [[nodiscard]] QString file() const { return m_folder.filePath(u"deep/below/Quaverly.ini"_s); }

private:
    QTemporaryDir m_folder;
};

TEST_F(Options, KeepsEveryTextBetweenRuns)
{
    const QStringList values = {u"Arial"_s,    u""_s,         u"/home/änna/My Music/"_s, u"a, b; c=d #e"_s,
                                u"@Variant"_s, u"  blank "_s, u"\"quoted\"\\"_s,         u"two\nlines"_s};
    for (const QString &value : values) {
        OptionsStore(file()).SaveSetting(Section, u"Database Location"_s, value);
        EXPECT_EQ(OptionsStore(file()).GetSetting(Section, u"Database Location"_s, u"none"_s), value);
    }
}

TEST_F(Options, ADamagedFileReadsAsDefaultsAndTakesNewValues)
{
    for (const QByteArray &damage :
         {QByteArray("[Options\nFont"), QByteArray(4096, '\0'), QByteArray("\xFF\xFE[\x00O\x00", 6),
          QByteArray("=\n]]\nOptions\\Font=@Variant(\\0\\0\\xff)\n")}) {
        test::writeFile(file(), damage);
        EXPECT_EQ(OptionsStore(file()).GetSetting(Section, u"Font"_s, u"Arial"_s), u"Arial"_s);
        OptionsStore(file()).SaveSetting(Section, u"Font"_s, u"Sans"_s);
        EXPECT_EQ(OptionsStore(file()).GetSetting(Section, u"Font"_s), u"Sans"_s);
    }
}

TEST_F(Options, AFileThatCannotBeWrittenSaysSoAndReadsAsDefaults)
{
    ASSERT_TRUE(QDir().mkpath(file())); // a folder stands in its place
    for (const QString &path : {file(), u"/proc/quaverly/Quaverly.ini"_s}) {
        EXPECT_THROW(OptionsStore(path).SaveSetting(Section, u"Font"_s, u"Sans"_s), dao::DaoError);
        EXPECT_EQ(OptionsStore(path).GetSetting(Section, u"Font"_s, u"Arial"_s), u"Arial"_s);
    }
}

/** Sets an environment variable for the length of a scope. */
class Environment final
{
public:
    Environment(const char *name, const QByteArray &value) : m_name(name), m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~Environment() { qputenv(m_name, m_before); }
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
};

TEST(Folders, EachHasItsHomeAndIsMadeOnDemand)
{
    const QTemporaryDir home;
    using Case = std::tuple<const char *, QString (*)(), QString>;
    const std::vector<Case> cases = {
        {"XDG_CONFIG_HOME", folders::config, u".config"_s},
        {"XDG_DATA_HOME", folders::data, u".local/share"_s},
        {"XDG_STATE_HOME", folders::state, u".local/state"_s},
        {"XDG_CACHE_HOME", folders::cache, u".cache"_s},
    };
    const Environment user("HOME", QFile::encodeName(home.path()));
    for (const auto &[variable, folder, underHome] : cases) {
        for (const QByteArray &none : {QByteArray(), QByteArray("relative/folder")}) {
            const Environment unset(variable, none);
            EXPECT_EQ(folder(), home.filePath(underHome) + u"/Quaverly/"_s);
            EXPECT_TRUE(QFileInfo(folder()).isDir());
        }
        const Environment set(variable, QFile::encodeName(home.filePath(u"x/y/"_s)));
        EXPECT_EQ(folder(), home.filePath(u"x/y/Quaverly/"_s));
        EXPECT_TRUE(QFileInfo(folder()).isDir());
    }
}

TEST(Folders, TheRuntimeFolderIsForTheUserAlone)
{
    const QTemporaryDir base;
    const Environment temp("TMPDIR", QFile::encodeName(base.path()));
    const auto privately = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    {
        const Environment runtime("XDG_RUNTIME_DIR", QFile::encodeName(base.path()));
        ASSERT_TRUE(QDir().mkdir(base.filePath(u"Quaverly"_s)));
        ASSERT_TRUE(QFile::setPermissions(base.filePath(u"Quaverly"_s), privately | QFile::ReadOther));
        EXPECT_EQ(folders::runtime(), base.filePath(u"Quaverly/"_s));
        EXPECT_FALSE(QFileInfo(folders::runtime()).permissions() & QFile::ReadOther);
    }
    const Environment runtime("XDG_RUNTIME_DIR", "");
    const QString own = u"Quaverly-"_s + QString::number(::geteuid());
    EXPECT_EQ(folders::runtime(), base.filePath(own + u"/"_s));

    // A link that somebody else may have put there is not followed.
    ASSERT_TRUE(QDir().rmdir(base.filePath(own)));
    ASSERT_TRUE(QFile::link(base.filePath(u"Quaverly"_s), base.filePath(own)));
    EXPECT_EQ(folders::runtime(), folders::cache());
}

} // namespace
