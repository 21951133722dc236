// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** The section that holds every option of the program. */
inline constexpr char16_t OptionsSection[] = u"Options";

/**
 * The user's options on this machine: one INI file, texts by section and key. Nothing is cached, so
 * that what a second start of the program saves is seen here.
 */
class OptionsStore final
{
public:
    /** The user's own file; it need not be there. */
    OptionsStore();
    explicit OptionsStore(QString file) : m_file(std::move(file)) {}

    /** The text kept, or @p defaultValue when there is none or the file can't be read. */
    [[nodiscard]] QString GetSetting(const QString &section, const QString &key,
                                     const QString &defaultValue = {}) const;

    /**
     * Keeps a text; it is on the disk when the call returns.
     * @throws dao::DaoError 75 when the file can't be written.
     */
    void SaveSetting(const QString &section, const QString &key, const QString &value);

    [[nodiscard]] QString file() const { return m_file; }

private:
    QString m_file;
};

} // namespace quaverly
