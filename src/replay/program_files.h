// Where the files lie that come with the program: teams, parks, charts, the plan of the database.
#pragma once

#include <QString>

namespace dtb::replay {

// Beside the executable, in a folder "program" beside it, or in "../share/kelvane-diamond-table";
// `given` is looked at alone unless it is "". Throws Refused where schema.sql is in none of them.
[[nodiscard]] QString FindProgramFiles(const QString& given = {});

}  // namespace dtb::replay
