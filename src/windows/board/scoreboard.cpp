#include "windows/board/scoreboard.h"

#include <QPainter>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include "aids/ballparks.h"
#include "aids/charts.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/innings.h"
#include "game/outs.h"
#include "game/score_pad.h"
#include "platform/qt/qt_text.h"
#include "teams/logos.h"
#include "windows/shared/bind.h"
#include "windows/shared/game_text.h"
#include "windows/shared/look.h"
#include "windows/shared/name_edit.h"
#include "windows/shared/text_visit.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

// Places in layout units. Frame3 lies between the two side panels.
constexpr Place kFrame3{340, 12, 999, 188};
constexpr Place kFrame4{12, 12, 750, 120};
constexpr Place kFrame6{778, 12, 84, 120};
constexpr Place kFrame1{340, 12, 632, 140};

constexpr double kHeaderHeight = 24;
constexpr double kTeamWidth = 184;  // 24 letters
constexpr double kCellWidth = 34;
constexpr double kCellPitch = 37;
constexpr double kCellHeight = 44;
constexpr double kFirstInningLeft = 244;
constexpr double kFirstTotalLeft = 622;
constexpr double kTotalWidth = 40;
constexpr double kTotalPitch = 44;
constexpr int kShownInnings = 10;
constexpr double kChartWidth = 80;
constexpr double kChartPitch = 88;

double RowTop(Side side) { return side == Side::Visitors ? 28 : 76; }

struct ScoreNames {
  const char* row;   // objectName of the row's cells
  const char* word;  // for screen readers
  const char* team;
  const char* logo;
};

const ScoreNames& NamesOf(Side side) {
  static constexpr ScoreNames visitors{"tb_BoxScore", "Visitors", "tb_VisTeam", "img_VisLogo"};
  static constexpr ScoreNames home{"tb_BoxScoreBottom", "Home", "tb_HomeTeam", "img_HomeLogo"};
  return side == Side::Visitors ? visitors : home;
}

QString CellWord(int cell) {
  switch (cell) {
    case kTotalRuns:
      return QStringLiteral("runs");
    case kTotalHits:
      return QStringLiteral("hits");
    case kTotalErrors:
      return QStringLiteral("errors");
    default:
      return QStringLiteral("inning %1").arg(cell + 1);
  }
}

// The tool-tips of the extra innings' corner cells, as people know them.
QString CellTip(Side side, int cell) {
  if (cell == 10) {
    return side == Side::Visitors ? QStringLiteral("top of 11") : QStringLiteral("bottom of 11");
  }
  if (cell == 19) {
    return side == Side::Visitors ? QStringLiteral("top of 20") : QStringLiteral("botom of 20");
  }
  switch (cell) {
    case kTotalRuns:
      return QStringLiteral("Runs; UPDATE adds up the innings");
    case kTotalHits:
      return QStringLiteral("Hits");
    case kTotalErrors:
      return QStringLiteral("Errors");
    default:
      return TipWithKey(QStringLiteral("%1 of inning %2; a double click marks it as finished")
                            .arg(QLatin1String(side == Side::Visitors ? "Top" : "Bottom"))
                            .arg(cell + 1),
                        QStringLiteral("Ctrl + Enter"));
  }
}

bool IsDigit(const QString& typed) {
  return typed.size() == 1 && typed.at(0) >= QLatin1Char('0') && typed.at(0) <= QLatin1Char('9');
}

// Digits are figures. Letters are keys of the board, but for the "x" with which scorers mark a half
// that was not played, in an empty cell. What is pasted has to look like that, too.
void TakeFiguresAlone(FigureField* field, int cell) {
  const bool inning = cell < kInnings;
  const auto pattern = inning ? QStringLiteral("\\d{0,2}|[xX]") : QStringLiteral("\\d{0,4}");
  field->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), field));
  field->SetKeyUse([field, inning](const QString& typed) {
    const bool mark = inning && field->text().isEmpty() && typed.toLower() == QLatin1String("x");
    return mark || IsDigit(typed) ? FigureField::KeyUse::Text : FigureField::KeyUse::Board;
  });
}

// Lies over a part of the scoreboard and looks like it: its own right and lower edges do not show.
class Cover : public Panel {
 public:
  using Panel::Panel;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    constexpr int kBeyond = 20;
    DrawPlate(painter, rect().adjusted(0, 0, kBeyond, kBeyond), kSlate, kEdge, 1);
  }
};

}  // namespace

Scoreboard::Scoreboard(Board& board, Aids& aids, QtPictures& pictures, Scene& scene,
                       QWidget* parent)
    : DraggablePanel(scene, parent, DragBy::Grip), board_(board), aids_(aids), scene_(scene) {
  Name(this, "Frame3", QStringLiteral("Scoreboard"));
  scene.Put(this, kFrame3);
  auto* frame4 = new QWidget(this);
  Name(frame4, "Frame4", QStringLiteral("Line score"));
  scene.Put(frame4, kFrame4);
  BuildTeams(frame4, pictures);
  BuildLineScore(frame4);
  BuildOuts();
  BuildCommands();
  BuildCharts();
  BuildExtraInnings(pictures);
}

// The plate with a team's name.
void Scoreboard::DressTeam(FigureField* team, Side side, const QPointF& origin) {
  team->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  team->setTextMargins(4, 0, 4, 0);
  scene_.Put(team, {origin.x() + 52, origin.y() + RowTop(side), kTeamWidth, kCellHeight}, kHuge,
             true);
  FollowAll(
      team, [this, team, side] { team->SetGround(Shade(SideColour(board_.state, side)), kInk); },
      board_.state.Option5, board_.state.Option6);
}

void Scoreboard::BuildTeams(QWidget* frame, QtPictures& pictures) {
  FigureField* visitors = nullptr;
  for (const Side side : {Side::Visitors, Side::Home}) {
    SideFields fields = SideOf(board_, side);
    auto* logo = new PictureButton(frame);
    Name(logo, NamesOf(side).logo, QLatin1String(NamesOf(side).word) + QStringLiteral(" logo"));
    logo->setToolTip(QStringLiteral("Click to choose another logo"));
    connect(logo, &QAbstractButton::clicked, this, [this, side] { ChooseLogo(board_, side); });
    scene_.Put(logo, {0, RowTop(side), 44, 44});
    Follow<Picture>(logo, fields.logo, [logo, &pictures](const Picture& picture) {
      logo->SetImage(pictures.Image(picture));
    });
    auto* team = new FigureField(frame);
    Name(team, NamesOf(side).team,
         QLatin1String(NamesOf(side).word) + QStringLiteral(" team name"));
    DressTeam(team, side, {});
    if (visitors != nullptr) team->SetTextFits(visitors);
    visitors = team;
    BindGameText(team, fields.team, board_, "team name");
    team->setToolTip(QStringLiteral("The team's name on the board"));
    connect(team, &QLineEdit::textChanged, team, [team](const QString& text) {
      team->setToolTip(TipOfLines({text.left(200)}));
      if (!team->hasFocus()) team->setCursorPosition(0);
    });
  }
}

void Scoreboard::AddScoreCell(QWidget* frame, Side side, int cell, const Place& place) {
  ScoreCell& score = SideOf(board_, side).score.at(cell);
  auto* field = new FigureField(frame);
  Name(field, NamesOf(side).row,
       QLatin1String(NamesOf(side).word) + QLatin1Char(' ') + CellWord(cell));
  field->setObjectName(QStringLiteral("%1[%2]").arg(QLatin1String(NamesOf(side).row)).arg(cell));
  field->setToolTip(CellTip(side, cell));
  scene_.Put(field, place, kHuge, cell >= kTotalRuns);
  BindGameText(field, score.text, board_, "line score");
  Follow<Colour>(field, score.colour,
                 [field](const Colour& colour) { field->SetGround(Shade(colour), kInk); });
  if (cell < kInnings) {
    FollowAll(
        field,
        [this, field, side, cell] {
          const bool now = InProgress(side, cell);
          const bool over = SideOf(board_, side).score.at(cell).colour.value() == kFinishedYellow;
          field->SetMark(now);
          field->setAccessibleDescription(now    ? QStringLiteral("being played")
                                          : over ? QStringLiteral("finished")
                                                 : QString());
        },
        board_.state.tb_OutsCount, board_.state.Option5, board_.state.Option6, score.colour);
  }
  connect(field, &FigureField::focused, this,
          [this, side, cell] { FocusScoreCell(board_, side, cell); });
  connect(field, &FigureField::marked, this,
          [this, side, cell] { ToggleFinished(board_, side, cell); });
  connect(field, &FigureField::caretMoved, this,
          [this](bool toStart) { MoveCaret(board_, toStart); });
  connect(field, &FigureField::returned, this, [this, field] { SyncCaret(field); });
  TakeFiguresAlone(field, cell);
  if (board_.history != nullptr) {
    board_.history->Observe(
        [this, field] {
          if (field->hasFocus() && board_.history->stepped()) SyncCaret(field);
        },
        WhileItLives(field));
  }
  // What others write into the cell leaves it as it was for the person: still to be replaced, or
  // not.
  connect(field, &QLineEdit::textChanged, field, [this, field] {
    if (field->hasFocus() && !field->isModified() && CaretAtStart(board_.state)) field->selectAll();
  });
}

void Scoreboard::SyncCaret(FigureField* field) const {
  if (CaretAtStart(board_.state)) {
    field->selectAll();
  } else {
    field->end(false);
  }
}

bool Scoreboard::InProgress(Side side, int inning) const {
  const int half = HalfInProgress(board_.state);
  if (!SideAtBat(board_.state) || half >= kHalves) return false;
  return half == 2 * inning + (side == Side::Home ? 1 : 0);
}

void Scoreboard::AddDigit(QWidget* frame, int digit, const Place& place) {
  const QString caption = QString::number(digit);
  auto* label = new ClickLabel(caption, {Qt::transparent, kSlateHover, kCream}, frame);
  label->setObjectName(QStringLiteral("lbl_") + caption);
  label->setAccessibleName(QStringLiteral("Score pad ") + caption);
  label->setToolTip(QStringLiteral("Types this digit into the cell that you chose last"));
  scene_.Put(label, place, kBody, true);
  connect(label, &QAbstractButton::clicked, this, [this, digit] {
    EndTextVisit(this);
    ClickDigit(board_, DecimalText(digit));
  });
}

void Scoreboard::BuildLineScore(QWidget* frame) {
  constexpr std::array<const char*, 3> totals{"R", "H", "E"};
  for (int inning = 0; inning < kShownInnings; ++inning) {
    const double left = kFirstInningLeft + inning * kCellPitch;
    AddDigit(frame, (inning + 1) % 10, {left, 0, kCellWidth, kHeaderHeight});
  }
  for (int total = 0; total < 3; ++total) {
    auto* header = MakeCaption(QLatin1String(totals.at(total)), frame, Qt::AlignCenter);
    scene_.Put(header, {kFirstTotalLeft + total * kTotalPitch, 0, kTotalWidth, kHeaderHeight},
               kBody, true);
  }
  for (const Side side : {Side::Visitors, Side::Home}) {
    for (int inning = 0; inning < kShownInnings; ++inning) {
      AddScoreCell(frame, side, inning,
                   {kFirstInningLeft + inning * kCellPitch, RowTop(side), kCellWidth, kCellHeight});
    }
    for (int total = 0; total < 3; ++total) {
      AddScoreCell(frame, side, kTotalRuns + total,
                   {kFirstTotalLeft + total * kTotalPitch, RowTop(side), kTotalWidth, kCellHeight});
    }
  }
}

void Scoreboard::BuildOuts() {
  auto* frame = new QWidget(this);
  Name(frame, "Frame6", QStringLiteral("Outs"));
  scene_.Put(frame, kFrame6);
  scene_.Put(MakeCaption(QStringLiteral("OUTS"), frame, Qt::AlignCenter), {0, 0, 84, kHeaderHeight},
             kBody, true);
  auto* outs = new FigureField(frame);
  Name(outs, "tb_OUT", QStringLiteral("Outs of the half-inning"));
  outs->setToolTip(QStringLiteral("Outs of this half-inning"));
  outs->SetGround(kOutsRed, Qt::white);
  scene_.Put(outs, {0, 28, 84, 48}, kHuge, true);
  BindGameText(outs, board_.state.tb_OUT, board_, "OUTS");
  outs->setToolTip(QStringLiteral("Outs of the half-inning; type 0 to 2, or 3 to end it"));
  outs->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-2]?")), outs));
  outs->SetKeyUse([this, outs](const QString& typed) {
    if (typed == QLatin1String("3")) {
      EndTextVisit(this);
      EndHalfByHand(board_);
      return FigureField::KeyUse::Done;
    }
    if (!IsDigit(typed) || typed > QLatin1String("2")) return FigureField::KeyUse::Board;
    outs->selectAll();
    return FigureField::KeyUse::Text;
  });
  auto* reset = new QPushButton(QStringLiteral("RESET"), frame);
  Name(reset, "Command11", QStringLiteral("RESET game pieces"));
  reset->setToolTip(QStringLiteral("Clears the game pieces; outs and score stay"));
  scene_.Put(reset, {0, 84, 84, 36}, kBody);
  connect(reset, &QPushButton::clicked, this, [this] { ResetGamePieces(board_); });
  connect(reset, &QPushButton::released, this, [this] { board_.state.cb_Xinnings.Set(false); });
}

void Scoreboard::BuildCommands() {
  auto* update = new QPushButton(QStringLiteral("UPDATE"), this);
  Name(update, "Command5", QStringLiteral("UPDATE totals"));
  update->setToolTip(QStringLiteral("Adds up the innings of both teams"));
  scene_.Put(update, {878, 12, 109, 36}, kBody);
  connect(update, &QPushButton::clicked, this, [this] {
    const Gesture gesture(board_, "UPDATE");
    ScoreUpdate(board_);
  });
  auto* extra = new QCheckBox(QStringLiteral("X-INN"), this);
  Name(extra, "cb_Xinnings", QStringLiteral("Extra innings 11-20"));
  extra->setToolTip(QStringLiteral("Extra innings 11-20"));
  scene_.Put(extra, {882, 96, 105, 40}, kBody);
  BindCheck(extra, board_.state.cb_Xinnings);
  auto* parks = new QPushButton(QStringLiteral("BALLPARKS"), this);
  Name(parks, "Command9", QStringLiteral("BALLPARKS"));
  parks->setToolTip(QStringLiteral("Choose the picture of the ballpark"));
  scene_.Put(parks, {878, 54, 109, 36}, kBody);
  connect(parks, &QPushButton::clicked, this, [this] { ChoosePark(aids_); });
}

void Scoreboard::BuildCharts() {
  const auto addLabel = [this](const char* name, const QString& caption, const Place& place) {
    auto* label = new ClickLabel(caption, {kButtonGrey, Qt::white, kInk}, this);
    Name(label, name, caption);
    label->SetRestsAfterRelease();
    scene_.Put(label, place, kBody, true);
    return label;
  };
  for (int chart = 0; chart < kChartButtons; ++chart) {
    const Place place{12 + chart * kChartPitch, 144, kChartWidth, 32};
    const QString number = QString::number(chart + 1);
    auto* label = addLabel(qPrintable(QStringLiteral("lbl_chrt") + number), {}, place);
    label->SetHint(ToQt(ChartHint(aids_.state, chart)));
    label->SetTextFits();
    scene_.Put(label, place, kLarge, true);
    Follow<std::string>(
        label, aids_.state.lbl_chrt.at(chart), [this, label, number, chart](const auto&) {
          const QString caption = ToQt(ChartCaption(aids_.state, chart));
          const QString plain = QStringLiteral("Chart ") + number;
          label->setAccessibleName(caption == plain ? plain : plain + QLatin1Char(' ') + caption);
          label->setToolTip(
              TipOfLines({TipWithKey(caption, QStringLiteral("Alt + ") + number),
                          QStringLiteral("Ctrl + click gives the button another name")}));
        });
    auto* edit = new NameEdit(aids_.platform, ChartName(aids_.state, chart), label);
    Name(edit, qPrintable(QStringLiteral("tb_chrt") + number),
         QStringLiteral("Name of chart ") + number);
    scene_.Put(edit, place, kBody);
    connect(edit, &NameEdit::labelClicked, this, [this, chart] { emit chartWanted(chart); });
  }
  auto* rules = addLabel("lbl_rules", QStringLiteral("RULES"), {804, 144, 66, 32});
  connect(rules, &QAbstractButton::clicked, this, [this] { OpenRules(aids_); });
  auto* help = addLabel("lbl_help", QStringLiteral("DTB HELP"), {878, 144, 74, 32});
  rules->setToolTip(QStringLiteral("Opens the rules of the dice game"));
  help->setToolTip(QStringLiteral("Opens the help page"));
  auto* keys = addLabel("lbl_keys", QStringLiteral("?"), {958, 144, 29, 32});
  keys->setAccessibleName(QStringLiteral("Keys"));
  keys->setToolTip(QStringLiteral("Shows all keys (?)"));
  connect(keys, &QAbstractButton::clicked, this, &Scoreboard::keysWanted);
  connect(help, &QAbstractButton::clicked, this, [this] { OpenHelp(aids_); });
}

void Scoreboard::BuildExtraInnings(QtPictures& pictures) {
  extraInnings_ = new Cover(parentWidget());
  Name(extraInnings_, "Frame1", QStringLiteral("Innings 11 to 20"));
  scene_.Put(extraInnings_, kFrame1);
  BindVisible(extraInnings_, board_.state.cb_Xinnings);
  // One ground under both, so that nothing shows where one begins.
  Follow<bool>(this, board_.state.cb_Xinnings,
               [this](bool open) { SetFill(open ? kSlate : kSlateOverPark); });
  for (int inning = kShownInnings; inning < kInnings; ++inning) {
    const double left = kFrame4.left + kFirstInningLeft + (inning - kShownInnings) * kCellPitch;
    scene_.Put(MakeCaption(QString::number(inning + 1), extraInnings_, Qt::AlignCenter),
               {left, kFrame4.top, kCellWidth, kHeaderHeight}, kBody, true);
    for (const Side side : {Side::Visitors, Side::Home}) {
      AddScoreCell(extraInnings_, side, inning,
                   {left, kFrame4.top + RowTop(side), kCellWidth, kCellHeight});
    }
  }
  FigureField* visitors = nullptr;
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board_, side);
    const double top = kFrame4.top + RowTop(side);
    auto* logo = new PictureBox(PictureBox::Fit::Whole, extraInnings_);
    scene_.Put(logo, {kFrame4.left + 2, top + 2, 40, 40});
    Follow<Picture>(logo, fields.logo, [logo, &pictures](const Picture& picture) {
      logo->SetImage(pictures.Image(picture));
    });
    auto* team = new FigureField(extraInnings_);
    team->setReadOnly(true);
    team->setAttribute(Qt::WA_TransparentForMouseEvents);
    team->setFocusPolicy(Qt::NoFocus);
    DressTeam(team, side, {kFrame4.left, kFrame4.top});
    if (visitors != nullptr) team->SetTextFits(visitors);
    visitors = team;
    FollowText(team, fields.team);
  }
  extraInnings_->raise();
}

void Scoreboard::AlignExtraInnings() {
  const Place frame3 = scene_.PlaceOf(this);
  Place place = scene_.PlaceOf(extraInnings_);
  if (place.left == frame3.left && place.top == frame3.top) return;
  place.left = frame3.left;
  place.top = frame3.top;
  scene_.MoveTo(extraInnings_, place);
}

}  // namespace dtb
