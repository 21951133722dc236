// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quaverly {

class DataControl;
class Desktop;
class SettingsRows;
struct Options;

/** The song whose data a new record starts with. */
class TemplateRecord final
{
public:
    TemplateRecord(Desktop &desktop, Options &options, SettingsRows &settings, DataControl &data)
        : m_desktop(desktop), m_options(options), m_settings(settings), m_data(data)
    {}

    /** Marks the current row, unless a new record is being typed. Tells what came of it. */
    void make(bool isStored);
    void clear();

    [[nodiscard]] bool isSet() const;
    /** Makes the template the current row. One that is not displayed is forgotten for this run. */
    [[nodiscard]] bool find();

private:
    Desktop &m_desktop;
    Options &m_options;
    SettingsRows &m_settings;
    DataControl &m_data;
};

} // namespace quaverly
