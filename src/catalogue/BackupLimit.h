// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace quaverly {

class Backups;
class Desktop;
class OptionsStore;

/** How much room the copies of a catalogue may take together, as the user chose, or else by a rule. */
class BackupLimit final
{
public:
    /** @p options outlives this object. */
    explicit BackupLimit(const OptionsStore &options) : m_options(options) {}

    /** 0 when the rule holds. */
    [[nodiscard]] qint64 chosenMegabytes() const;
    /** By rule ten times the catalogue, and a tenth of the free space at most. */
    [[nodiscard]] qint64 bytes(qint64 catalogueSize, std::optional<qint64> freeSpace) const;

private:
    const OptionsStore &m_options;
};

/** Shows the limit, and has the user type another one. @throws dao::DaoError 75 when it can't be kept. */
void askForBackupLimit(Desktop &desktop, OptionsStore &options, const Backups &backups);

} // namespace quaverly
