#include "platform/qt/text_order.h"

#include <QCollator>

namespace dunvey {
namespace {

QLocale CollatorLocale() {
    // QCollator ignores its numeric mode under the C and POSIX locales.
    const QLocale locale;
    return locale.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates)
                                           : locale;
}

QCollator MakeCollator() {
    QCollator collator(CollatorLocale());
    collator.setNumericMode(true);
    return collator;
}

}  // namespace

int64_t CompareAsNames(const std::string& text1, const std::string& text2) {
    static const QCollator collator = MakeCollator();
    const int order =
        collator.compare(QString::fromStdString(text1), QString::fromStdString(text2));
    return order != 0 ? order : text1.compare(text2);
}

}  // namespace dunvey
