// The statements that make an empty statistics database.
#pragma once

namespace dtb::sqlite {

extern const char* const kSchema;

}  // namespace dtb::sqlite
