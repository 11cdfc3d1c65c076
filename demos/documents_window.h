#pragma once

#include <QByteArray>
#include <QLabel>
#include <QList>
#include <QListWidget>
#include <QWidget>
#include <functional>

namespace dunvey::demo {

/// The window of a stand-in: the documents that it was handed.
class DocumentsWindow : public QWidget {
 public:
    /// `shown` is called whenever everything added so far has been painted.
    DocumentsWindow(const QString& title, std::function<void()> shown);

    /// Adds the documents, absolute paths, of one start.
    void Add(const QList<QByteArray>& documents);
    /// Moves to the given place, 0-based, when the screen is shared among so many windows.
    void TakePlace(int place, int places);

 private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QLabel heading_;
    QListWidget list_;
    int starts_ = 0;
    bool isBehind_ = true;
    std::function<void()> shown_;
};

}  // namespace dunvey::demo
