#pragma once

#include <QByteArray>
#include <QList>
#include <QLocalServer>
#include <functional>

namespace dunvey::demo {

/// One process for each application: the first one stays and takes the documents of every later
/// start, as applications of this kind do.
class SingleInstance {
 public:
    using Documents = QList<QByteArray>;

    /// `bundle` is the path that tells applications apart; it must be a folder that exists.
    explicit SingleInstance(const QByteArray& bundle);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Makes this process the one that stays, with `receive` called for the documents of each later
    /// start, and returns true. Where there is one already, hands the documents to it and returns
    /// false.
    bool StayOrHandOver(const Documents& documents, std::function<void(const Documents&)> receive);

 private:
    bool Lock() const;
    void Listen(std::function<void(const Documents&)> receive);
    bool HandOver(const Documents& documents) const;

    QString name_;
    int bundle_;
    QLocalServer server_;
};

}  // namespace dunvey::demo
