// Stands in for one version of the page-layout program: shows the documents that it opens and logs
// them to the file in DUNVEY_DEMO_LOG. It ends when its window is closed or with SIGTERM.
// DUNVEY_DEMO_BUNDLE names the bundle if the program isn't inside it.
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

/// Logs an event of the application with this bundle: once for each document, or once without one.
void LogEvent(const QString& bundle, const std::string& event, const Documents& documents) {
    const QByteArray log = qgetenv("DUNVEY_DEMO_LOG");
    if (log.isEmpty()) return;
    std::vector<LogRecord> records;
    for (const QByteArray& document : documents) {
        records.push_back({event, std::to_string(getpid()), QFile::encodeName(bundle).toStdString(),
                           document.toStdString()});
    }
    if (!Append(log.toStdString(), records)) qWarning("%s can't be written.", log.constData());
}

/// Returns a descriptor that becomes readable when SIGTERM arrives. Called before threads start.
int OpenTermination() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

void PlaceAmongOthers(DocumentsWindow& window, const QString& bundle) {
    const QDir folder(bundle + "/..");
    const QStringList all = QDir(bundle + "/../..").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    const auto index = all.indexOf(QDir(folder.canonicalPath()).dirName());
    window.Place(static_cast<int>(index), static_cast<int>(all.size()));
}

int Run(const Documents& documents, int termination) {
    const QString bundle = OwnBundle();
    DocumentsWindow window(Title(bundle), [&] { LogEvent(bundle, "shown", {{}}); });
    SingleInstance instance(QFile::encodeName(bundle));
    const bool isFirst = instance.StartOrSend(documents, [&](const Documents& received) {
        LogEvent(bundle, "received", received);
        window.Add(received);
        window.raise();
        window.activateWindow();
    });
    if (!isFirst) return 0;
    LogEvent(bundle, "opened", documents);
    LogEvent(bundle, "started", {{}});
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
    // Kept as bytes: Qt would decode paths as text.
    dunvey::demo::Documents documents;
    for (int i = 1; i < argumentCount; ++i)
        documents.append(arguments[i]);
    const int termination = dunvey::demo::OpenTermination();
    int onlyName = 1;
    const QApplication application(onlyName, arguments);
    return dunvey::demo::Run(documents, termination);
}
