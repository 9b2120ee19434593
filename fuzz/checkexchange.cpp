// SPDX-License-Identifier: GPL-2.0-or-later
// What holds for any bytes that are read as an exchange file.
#include "fuzz/checkexchange.h"
#include "fuzz/promise.h"
#include "ipc/message_p.h"
#include <cmath>
#include <kelo_base/ipc/KeloCommandData.h>

using namespace channel;

namespace {

void checkRecord(const Message &message)
{
    const auto data = commandDataOf(message);
    if (!data)
        return;
    for (const double number :
         {data->x, data->y, data->northDeviationInDegrees, data->viewingHeight})
        promise(std::isfinite(number), "numbers are finite");
    promise(!data->objectId.contains(u':') && !data->objectId.contains(u','),
            "values hold no separator");
    promise(message.type == u"IntegerCommand" || data->commandType != kNothingReceived,
            "only integers give the number for nothing received");
}

void checkMessage(QByteArrayView bytes)
{
    const auto message = decodeMessage(bytes);
    if (!message)
        return;
    promise(!message->type.isEmpty() && !message->id.isEmpty(), "type and id are there");
    promise(message->sender.isEmpty() == (message->number == 0), "sender and number go together");
    promise(message->sender.isEmpty() || isSenderId(message->sender), "senders are plain");
    checkRecord(*message);

    const QByteArray text = encodeMessage(*message);
    promise(hasEndMark(text), "what is written is marked as whole");
    const auto again = decodeMessage(text);
    promise(again.has_value(), "what is written can be read");
    promise(encodeMessage(*again) == text, "and is the same");
    promise(!decodeMessage(text.first(text.size() / 2)) || !hasEndMark(text.first(text.size() / 2)),
            "half of it does not pass for whole");
}

void checkAnswers(QByteArrayView bytes)
{
    const Answers answers = Answers::decode(bytes);
    const QByteArray text = answers.encode();
    promise(text.size() <= kFileLimit / 2, "what is remembered is limited");
    promise(Answers::decode(text) == answers, "answers are read as they are written");
}

} // namespace

void checkExchange(std::string_view bytes)
{
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    checkMessage(view);
    checkAnswers(view);
    promise(!hasEndMark(view) || view.contains("[End]"), "the mark is there when it is found");
}
