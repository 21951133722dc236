// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace quaverly {

/**
 * What picture decoders complain of on this thread, for the length of a scope. Of a damaged JPEG they read
 * what they can and only log that. Scopes don't nest.
 */
class DecoderComplaints final
{
public:
    DecoderComplaints();
    ~DecoderComplaints();
    DecoderComplaints(const DecoderComplaints &) = delete;
    DecoderComplaints &operator=(const DecoderComplaints &) = delete;

    /** The first one; empty when there was none. */
    [[nodiscard]] const QString &first() const { return m_first; }

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message);

    QString m_first;
};

/** True for a bitmap or GIF file that ends before its picture does, which their decoders pass over. */
[[nodiscard]] bool endsEarly(QByteArrayView file);

} // namespace quaverly
