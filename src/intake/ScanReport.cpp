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

ScanReport::ScanReport(const QStringList &places) : m_places(places)
{
    for (const QString &place : places)
        QFile::remove(place);
}

void ScanReport::note(const QString &reason)
{
    if (!m_reasons.contains(reason))
        m_reasons.append(reason);
}

void ScanReport::passOver(PassedOver what, const QString &reason)
{
    ++m_counts[static_cast<std::size_t>(what)];
    note(reason);
}

void ScanReport::settle(const QString &path)
{
    if (m_reasons.isEmpty())
        return;
    const QByteArray line = (onOneLine(path) + u'\t' + onOneLine(m_reasons.join(u"; "_s)) + u'\n').toUtf8();
    m_reasons.clear();
    while (!append(line)) {
        if (!moveOn())
            return;
    }
}

bool ScanReport::append(const QByteArray &line)
{
    if (!m_file.isOpen())
        return false;
    const qint64 end = m_file.pos();
    if (m_file.write(line) == line.size())
        return true;
    // Half a line names no file.
    m_file.resize(end);
    return false;
}

/** To the next place, with what stands in the report so far: the disk that the scan fills may be its own. */
bool ScanReport::moveOn()
{
    const QString before = m_file.fileName();
    m_file.close();
    while (!m_places.isEmpty()) {
        const QString place = m_places.takeFirst();
        QDir().mkpath(QFileInfo(place).path());
        m_file.setFileName(place);
        if (QFile::exists(before) && !QFile::copy(before, place))
            continue;
        if (m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
            if (!before.isEmpty())
                QFile::remove(before);
            return true;
        }
    }
    m_file.setFileName(before);
    return false;
}

QString ScanReport::path() const
{
    return m_file.size() > 0 ? m_file.fileName() : QString();
}

} // namespace quaverly
