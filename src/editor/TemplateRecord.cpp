// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/TemplateRecord.h"

#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "desktop/Desktop.h"
#include "songlist/DataControl.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void TemplateRecord::make(bool isStored)
{
    if (!isStored) {
        m_desktop.MessageBox(
            u"You must save this record first before you can make it the default template."_s,
            u"Must save record first"_s);
        return;
    }
    const qint64 song = m_data.Recordset().value(u"RecordID"_s).toLongLong();
    m_settings.storeTemplateRecordID(song);
    m_options.TemplateRecordID = song;
    m_desktop.MessageBox(u"This record will be used as a template for new records.  All data in this record "
                         "(except the Name and ID fields) will now appear in new records."_s,
                         u"Template Saved"_s);
}

void TemplateRecord::clear()
{
    m_settings.storeTemplateRecordID(0);
    m_options.TemplateRecordID = 0;
    m_desktop.MessageBox(u"Template reset to original default."_s, u"Template Cleared"_s);
}

bool TemplateRecord::isSet() const
{
    return m_options.TemplateRecordID > 0;
}

bool TemplateRecord::find()
{
    if (isSet() && m_data.findRecord(m_options.TemplateRecordID))
        return true;
    m_options.TemplateRecordID = 0;
    return false;
}

} // namespace quaverly
