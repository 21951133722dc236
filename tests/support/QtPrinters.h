// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <gtest/gtest.h>

// GoogleTest finds these by the types' own (global) namespace.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringView text, std::ostream *out)
{
    PrintTo(text.toString(), out);
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toPercentEncoding(" /:;,.!?()[]{}<>=+*'\"").toStdString() << '"';
}

inline void PrintTo(const QDateTime &date, std::ostream *out)
{
    PrintTo(date.toString(Qt::ISODateWithMs), out);
}

inline void PrintTo(const QVariant &value, std::ostream *out)
{
    if (value.isNull())
        *out << "Null";
    else
        *out << value.typeName() << ' ' << '"' << value.toString().toStdString() << '"';
}
