// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/TagChange.h"

namespace shell {

TagChange::TagChange(const TagEdit &edit) : pictures(edit.pictures)
{
    for (auto field = edit.fields.cbegin(); field != edit.fields.cend(); ++field) {
        TagLib::StringList &list = values[toTag(field.key())];
        for (const QString &value : field.value())
            list.append(toTag(value));
    }
}

TagLib::PropertyMap TagChange::appliedTo(TagLib::PropertyMap now) const
{
    for (const auto &[key, list] : values) {
        if (list.isEmpty())
            now.erase(key);
        else
            now[key] = list;
    }
    return now;
}

QByteArray fromVector(const TagLib::ByteVector &bytes)
{
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

TagLib::ByteVector toVector(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<unsigned>(bytes.size())};
}

TagLib::String toTag(const QString &text)
{
    return {text.toUtf8().toStdString(), TagLib::String::UTF8};
}

} // namespace shell
