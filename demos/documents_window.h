#pragma once

#include <QByteArray>
#include <QLabel>
#include <QList>
#include <QListWidget>
#include <QWidget>
#include <functional>

namespace dunvey::demo {

/// The window of a stand-in, with the documents that it opened.
class DocumentsWindow : public QWidget {
 public:
    /// `shown` is called each time after added documents have been painted.
    DocumentsWindow(const QString& title, std::function<void()> shown);

    /// Adds the documents, absolute paths, of one command.
    void Add(const QList<QByteArray>& documents);
    /// Moves the window to its part of the screen, the 0-based `index` of `count`.
    void Place(int index, int count);

 private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QLabel heading_;
    QListWidget list_;
    int commands_ = 0;
    bool needsPaint_ = true;
    std::function<void()> shown_;
};

}  // namespace dunvey::demo
