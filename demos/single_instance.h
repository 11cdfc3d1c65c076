#pragma once

#include <QByteArray>
#include <QList>
#include <QLocalServer>
#include <functional>

namespace dunvey::demo {

/// Keeps one process for each application: the first process stays and receives the documents of
/// every later one.
class SingleInstance {
 public:
    using Documents = QList<QByteArray>;

    /// `bundle` is the path of an existing folder that identifies the application.
    explicit SingleInstance(const QByteArray& bundle);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Returns true if this is the first process; `receive` is then called with the documents of
    /// each later one. Otherwise sends the documents to the first process and returns false.
    bool StartOrSend(const Documents& documents, std::function<void(const Documents&)> receive);

 private:
    bool Lock() const;
    void Listen(std::function<void(const Documents&)> receive);
    bool Send(const Documents& documents) const;

    QString name_;
    int bundle_;
    QLocalServer server_;
};

}  // namespace dunvey::demo
