// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/ScanReport.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString onOneLine(QString text)
{
    text.replace(u'\n', u"\\n"_s);
    text.replace(u'\r', u"\\r"_s);
    text.replace(u'\t', u"\\t"_s);
    return text;
}

} // namespace

ScanReport::ScanReport(const QString &path) : m_file(path)
{
    if (!path.isEmpty())
        m_file.remove();
}

void ScanReport::note(const QString &reason)
{
    if (!m_reasons.contains(reason))
        m_reasons.append(reason);
}

void ScanReport::settle(const QString &path)
{
    if (m_reasons.isEmpty())
        return;
    ++m_count;
    if (!m_file.isOpen() && !m_file.fileName().isEmpty()) {
        QDir().mkpath(QFileInfo(m_file.fileName()).path());
        // A failed open leaves the device closed, and write() then does nothing but say so.
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            m_file.setFileName({});
    }
    if (m_file.isOpen())
        m_file.write((onOneLine(path) + u'\t' + onOneLine(m_reasons.join(u"; "_s)) + u'\n').toUtf8());
    m_reasons.clear();
}

} // namespace quaverly
