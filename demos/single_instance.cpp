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
    documents.removeLast();  // what stands behind the last zero byte
    return documents;
}

QByteArray Write(const SingleInstance::Documents& documents) {
    QByteArray message;
    for (const QByteArray& document : documents)
        message.append(document).append('\0');
    return message;
}

/// Gathers what a later start sends, until that one has hung up.
void Gather(QLocalSocket* start,
            const std::function<void(const SingleInstance::Documents&)>& receive) {
    const auto message = std::make_shared<QByteArray>();
    QObject::connect(start, &QLocalSocket::readyRead, start,
                     [=] { message->append(start->readAll()); });
    QObject::connect(start, &QLocalSocket::disconnected, start, [=] {
        message->append(start->readAll());
        start->deleteLater();
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

// The lock goes with its process, however that ends; a socket's file would stay behind.
bool SingleInstance::Lock() const {
    return flock(bundle_, LOCK_EX | LOCK_NB) == 0;
}

bool SingleInstance::StayOrHandOver(const Documents& documents,
                                    std::function<void(const Documents&)> receive) {
    // The other process may be about to listen, or about to end.
    while (!Lock()) {
        if (HandOver(documents)) return false;
        QThread::msleep(20);
    }
    Listen(std::move(receive));
    return true;
}

void SingleInstance::Listen(std::function<void(const Documents&)> receive) {
    QLocalServer::removeServer(name_);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this, receive] {
        while (QLocalSocket* start = server_.nextPendingConnection())
            Gather(start, receive);
    });
    if (!server_.listen(name_)) qFatal("The socket %s can't be made.", qPrintable(name_));
}

bool SingleInstance::HandOver(const Documents& documents) const {
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
