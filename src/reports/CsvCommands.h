// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class DataControl;
class Desktop;
struct Catalogue;

/** Writes the displayed songs, in the order of the grid, to a file for other programs. */
class CsvCommands final
{
public:
    /** All references outlive this object. */
    CsvCommands(Desktop &desktop, DataControl &displayed, const Catalogue &catalogue)
        : m_desktop(desktop), m_displayed(displayed), m_catalogue(catalogue)
    {}

    void Export_Click();
    void ExportWithNotes_Click();

private:
    void ExportCsv(bool withNotes);
    void write(const QString &path, bool withNotes);
    [[nodiscard]] bool isCatalogue(const QString &path) const;

    Desktop &m_desktop;
    DataControl &m_displayed;
    const Catalogue &m_catalogue;
};

} // namespace quaverly
