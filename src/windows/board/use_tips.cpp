#include "windows/board/use_tips.h"

#include <exception>

#include "platform/seasons.h"
#include "windows/shared/bind.h"

namespace dtb {

QString UseTips::Of(Side side, const QString& player) {
  Read();
  if (!reading_ || !reading_->done) return {};
  const StatSheet& sheet = board_.sheet;
  const auto& team = side == Side::Visitors ? sheet.lbl_VisTeam : sheet.lbl_HomeTeam;
  return ToQt(reading_->marks.TextOf(team.value(), FromQt(player)));
}

void UseTips::Read() {
  if (!kept_.season) return;
  const std::string& inUse = board_.platform.seasons.InUse();
  const bool unsaved = board_.sheet.Command2_enabled.value();
  if (known_ && known_->season == kept_.season && known_->inUse == inUse &&
      known_->unsaved == unsaved) {
    return;
  }
  Forget();
  known_ = Known{kept_.season, inUse, unsaved};
  reading_ = std::make_shared<Reading>();
  reader_ = std::jthread([reading = reading_, season = kept_.season,
                          &database = board_.platform.database](const std::stop_token& stop) {
    try {
      reading->marks = real::ReadUseMarks(database, season, stop);
    } catch (const std::exception&) {
      // A tip is no place to complain; whoever saves or lists the games is told.
    }
    reading->done = true;
  });
}

void UseTips::Forget() {
  known_.reset();
  reading_.reset();
  reader_ = {};
}

}  // namespace dtb
