#include "windows/board/use_tips.h"

#include "base/program_error.h"
#include "platform/seasons.h"
#include "windows/shared/bind.h"

namespace dtb {

QString UseTips::Of(Side side, const QString& player) {
  if (!kept_.season) return {};
  const std::string& inUse = board_.platform.seasons.InUse();
  const bool unsaved = board_.sheet.Command2_enabled.value();
  if (!known_ || known_->season != kept_.season || known_->inUse != inUse ||
      known_->unsaved != unsaved) {
    known_ = Known{kept_.season, inUse, unsaved, {}};
    try {
      known_->marks = real::ReadUseMarks(board_.platform.database, kept_.season);
    } catch (const ProgramError&) {
      // A tip is no place to complain; whoever saves or lists the games is told.
    }
  }
  const StatSheet& sheet = board_.sheet;
  const auto& team = side == Side::Visitors ? sheet.lbl_VisTeam : sheet.lbl_HomeTeam;
  return ToQt(known_->marks.TextOf(team.value(), FromQt(player)));
}

}  // namespace dtb
