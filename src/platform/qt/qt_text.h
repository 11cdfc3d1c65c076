#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>
#include <string>

#include "platform/values/variant_types.h"

namespace dunvey {

/// The text as one line that is shown as it is.
QString LineOf(const std::string& text);

/// The line for a button or check box, where a single "&" would mark a key.
QString WithoutKeys(QString line);

/// The line for a tool tip, never taken for markup.
QString TipOf(const QString& line);

/// A line made to fit into a room: in a smaller font down to a readable least one, then cut.
struct FittedLine {
    FittedLine(const QString& line, const QFont& wanted, const QSize& room, Qt::TextElideMode mode);
    QString text;
    QFont font;
    bool isCut;
};

QColor ToQColor(Color color);
Color ToColor(const QColor& color);

/// The colour as it can be read on the background, under the desktop's own palette.
QColor ReadableOn(Color color, const QColor& background);

}  // namespace dunvey
