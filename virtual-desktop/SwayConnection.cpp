#include "virtual-desktop/SwayConnection.h"

#include <cstring>

#include <QLocalSocket>

namespace quorvane {

QJsonDocument sway::ask(Question question, const QString& text) {
    static constexpr QByteArrayView magic("i3-ipc");
    struct Head {
        std::uint32_t size, type;
    };
    QLocalSocket socket;
    socket.connectToServer(qEnvironmentVariable("SWAYSOCK"));
    const auto payload = text.toUtf8();
    const Head head{static_cast<std::uint32_t>(payload.size()), static_cast<std::uint32_t>(question)};
    socket.write(magic.data(), magic.size());
    socket.write(reinterpret_cast<const char*>(&head), sizeof head);
    socket.write(payload);

    QByteArray answer;
    const auto before = static_cast<qsizetype>(magic.size() + sizeof head);
    Head answered{};
    const auto isWhole = [&] {
        if (answer.size() < before) return false;
        std::memcpy(&answered, answer.constData() + magic.size(), sizeof answered);
        return answer.size() >= before + static_cast<qsizetype>(answered.size);
    };
    while (!isWhole()) {
        if (!socket.waitForReadyRead(5000)) return {};
        answer += socket.readAll();
    }
    return QJsonDocument::fromJson(answer.mid(before, static_cast<qsizetype>(answered.size)));
}

} // namespace quorvane
