#pragma once

#include "platform/linux/helpers/slice.h"

namespace dunvey {

/// What a byte of a name is shown as: a control character as "?", so that no name of a file can
/// forge a line or steer a terminal.
constexpr char Printable(char byte) {
    const bool isControl = static_cast<unsigned char>(byte) < ' ' || byte == '\x7f';
    return isControl ? '?' : byte;
}

/// Writes "program: text" and the detail to standard error, in one write and without any memory.
void Complain(Slice program, Slice text, Slice detail = {});

}  // namespace dunvey
