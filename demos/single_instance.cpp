#include "single_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QThread>
#include <memory>

namespace dunvey::demo {
namespace {

/// The documents of a message: each ends with a zero byte.
SingleInstance::Documents Read(const QByteArray& message) {
    SingleInstance::Documents documents = message.split('\0');
    documents.removeLast();  // the empty rest after the last zero byte
    return documents;
}

QByteArray Write(const SingleInstance::Documents& documents) {
    QByteArray message;
    for (const QByteArray& document : documents)
        message.append(document).append('\0');
    return message;
}

/// Collects what a later process sends until it disconnects.
void Collect(QLocalSocket* sender,
             const std::function<void(const SingleInstance::Documents&)>& receive) {
    const auto message = std::make_shared<QByteArray>();
    QObject::connect(sender, &QLocalSocket::readyRead, sender,
                     [=] { message->append(sender->readAll()); });
    QObject::connect(sender, &QLocalSocket::disconnected, sender, [=] {
        message->append(sender->readAll());
        sender->deleteLater();
        receive(Read(*message));
    });
}

}  // namespace

SingleInstance::SingleInstance(const QByteArray& bundle)
    : name_("dunvey-demo-" +
            QCryptographicHash::hash(bundle, QCryptographicHash::Sha1).toHex().left(16)),
      bundle_(open(bundle.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}

SingleInstance::~SingleInstance() {
    server_.close();
    close(bundle_);
}

// A lock ends with its process; a socket's file would stay.
bool SingleInstance::Lock() const {
    return flock(bundle_, LOCK_EX | LOCK_NB) == 0;
}

bool SingleInstance::StartOrSend(const Documents& documents,
                                 std::function<void(const Documents&)> receive) {
    // Retried, since the other process may not listen yet or may be ending.
    while (!Lock()) {
        if (Send(documents)) return false;
        QThread::msleep(20);
    }
    Listen(std::move(receive));
    return true;
}

void SingleInstance::Listen(std::function<void(const Documents&)> receive) {
    QLocalServer::removeServer(name_);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this, receive] {
        while (QLocalSocket* sender = server_.nextPendingConnection())
            Collect(sender, receive);
    });
    if (!server_.listen(name_)) qFatal("The socket %s can't be created.", qPrintable(name_));
}

bool SingleInstance::Send(const Documents& documents) const {
    QLocalSocket first;
    first.connectToServer(name_);
    if (!first.waitForConnected()) return false;
    first.write(Write(documents));
    while (first.bytesToWrite() > 0) {
        if (!first.waitForBytesWritten(-1)) return false;
    }
    first.disconnectFromServer();
    return true;
}

}  // namespace dunvey::demo
