#pragma once

#include <QColor>
#include <QString>
#include <string>

#include "platform/values/variant_types.h"

namespace dunvey {

/// The text as one line; control characters and line breaks become visible signs.
QString LineOf(const std::string& text);

/// The line for a button or check box, where "&" would mark a mnemonic.
QString WithoutMnemonics(QString line);

/// The lines as the text of a tool tip, with no markup in them.
QString TipOf(const QString& lines);

QColor ToQColor(Color color);
Color ToColor(const QColor& color);

/// The colour, made darker or lighter until it can be read on the background in the current theme.
QColor ReadableOn(Color color, const QColor& background);

}  // namespace dunvey
