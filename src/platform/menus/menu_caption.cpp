#include "platform/menus/menu_caption.h"

#include <utility>

namespace dunvey {

MenuCaption::MenuCaption(std::string text) : title(std::move(text)) {
    const size_t mark = title.find('&');
    if (mark == std::string::npos) return;
    title.erase(mark, 1);
    if (mark < title.size() && title[mark] != '&' && title[mark] != ' ') mnemonic = mark;
}

}  // namespace dunvey
