#include "icons/file_types1.h"

namespace dunvey::FileTypes1 {
namespace {

Ref<FileType> Append(const char* name, const char* macType, const char* uti) {
    Ref<FileType> type = New<FileType>();
    type->Name = name;
    type->MacType = macType;
    type->Imported = true;
    type->UTI = uti;
    pAllFileTypes.push_back(type);
    return type;
}

}  // namespace

std::vector<Ref<FileType>> pAllFileTypes;

// A property for each row, named "p" and the row's name, and its accessor.
#define DUNVEY_PROPERTY(row, name, macType, uti) \
    static Ref<FileType> p##row;                 \
    Ref<FileType> row() {                        \
        return p##row;                           \
    }
DUNVEY_FILE_TYPE_ROWS(DUNVEY_PROPERTY)
#undef DUNVEY_PROPERTY

void _Initialize() {
#define DUNVEY_MAKE(row, name, macType, uti) p##row = Append(name, macType, uti);
    DUNVEY_FILE_TYPE_ROWS(DUNVEY_MAKE)
#undef DUNVEY_MAKE
}

}  // namespace dunvey::FileTypes1
