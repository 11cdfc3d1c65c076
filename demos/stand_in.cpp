// Stands in for one version of the page-layout program: shows the documents that it is handed and
// writes them to the file that DUNVEY_DEMO_LOG names. It stays until its window is closed or
// SIGTERM comes. DUNVEY_DEMO_BUNDLE names the bundle where the program itself stands elsewhere.
#include <sys/signalfd.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <csignal>

#include "documents_window.h"
#include "hand_over_log.h"
#include "single_instance.h"

namespace dunvey::demo {
namespace {

using Documents = SingleInstance::Documents;

/// APP.app of APP.app/Contents/MacOS/PROGRAM.
QString OwnBundle() {
    const QByteArray given = qgetenv("DUNVEY_DEMO_BUNDLE");
    if (!given.isEmpty()) return QFile::decodeName(given);
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../..");
}

QString Title(const QString& bundle) {
    static const QRegularExpression version(
        "<key>CFBundleShortVersionString</key>\\s*<string>([^<]*)");
    QFile propertyList(bundle + "/Contents/Info.plist");
    QString text;
    if (propertyList.open(QIODevice::ReadOnly)) text = QString::fromUtf8(propertyList.readAll());
    const QString number = version.match(text).captured(1);
    return QFileInfo(bundle).completeBaseName() + (number.isEmpty() ? "" : " (" + number + ")");
}

/// Writes down what the application with this bundle is doing.
class Logger {
 public:
    explicit Logger(const QString& bundle) : bundle_(QFile::encodeName(bundle).toStdString()) {}

    void Started(const Documents& documents) const {
        std::vector<LogRecord> records = {Record("started")};
        for (const QByteArray& document : documents)
            records.push_back(Record("opened", document));
        Write(records);
    }
    void Received(const Documents& documents) const {
        std::vector<LogRecord> records;
        for (const QByteArray& document : documents)
            records.push_back(Record("received", document));
        Write(records);
    }
    void Shown() const { Write({Record("shown")}); }

 private:
    LogRecord Record(const std::string& event, const QByteArray& document = {}) const {
        return {event, std::to_string(getpid()), bundle_, document.toStdString()};
    }
    static void Write(const std::vector<LogRecord>& records) {
        const QByteArray log = qgetenv("DUNVEY_DEMO_LOG");
        if (log.isEmpty() || Append(log.toStdString(), records)) return;
        qWarning("%s can't be written.", log.constData());
    }

    std::string bundle_;
};

/// Has SIGTERM end the program as closing its window does. Call it ahead of every thread.
int BlockedTermination() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

void PlaceAmongOthers(DocumentsWindow& window, const QString& bundle) {
    QDir folder(bundle);
    folder.cdUp();
    const QString own = folder.dirName();
    folder.cdUp();
    const QStringList all = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    window.TakePlace(static_cast<int>(all.indexOf(own)), static_cast<int>(all.size()));
}

int Run(const Documents& documents, int termination) {
    const QString bundle = OwnBundle();
    const Logger log(bundle);
    DocumentsWindow window(Title(bundle), [&] { log.Shown(); });
    SingleInstance instance(QFile::encodeName(bundle));
    const bool stays = instance.StayOrHandOver(documents, [&](const Documents& received) {
        log.Received(received);
        window.Add(received);
        window.raise();
        window.activateWindow();
    });
    if (!stays) return 0;
    log.Started(documents);
    window.Add(documents);
    PlaceAmongOthers(window, bundle);
    window.show();
    const QSocketNotifier notifier(termination, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(0); });
    return QCoreApplication::exec();
}

}  // namespace
}  // namespace dunvey::demo

int main(int argumentCount, char** arguments) {
    // Paths are bytes: Qt would read them as text.
    dunvey::demo::Documents documents;
    for (int i = 1; i < argumentCount; ++i)
        documents.append(arguments[i]);
    const int termination = dunvey::demo::BlockedTermination();
    int onlyName = 1;
    const QApplication application(onlyName, arguments);
    return dunvey::demo::Run(documents, termination);
}
