// The statements that make an empty statistics database.
#pragma once

namespace dtb::sqlite {

extern const char* const kSchema;

// The statements that make those of the four tables of the plays that a database has not.
extern const char* const kPlaySchema;

}  // namespace dtb::sqlite
