#include "game/game_pieces.h"

#include <algorithm>
#include <array>

#include "base/paths.h"
#include "game/bases.h"
#include "game/history.h"
#include "game/innings.h"
#include "game/played_mark.h"

namespace dtb {
namespace {

// Left edges at start, as shares of the scene's width: two pairs at the bottom corners.
constexpr std::array<double, kPieces> kStartLeft{0.0126, 0.1011, 0.7019, 0.7905};
// Pieces stand with their feet a little short of the scene's lower edge.
constexpr double kStartHeights = 1.175;
// The marker line across the ballpark on which "SM" puts the pieces: the feet of the start places.
constexpr double kGroundLine = kSceneHeight - (kStartHeights - 1) * kPieceHeight;

// What stays visible of a piece that is dragged out of the scene: wide enough to be caught again.
constexpr double kStrip = 24;

constexpr double kLeastWidth = 12;
constexpr double kBigFactor = 1.1;
constexpr double kSmallFactor = 0.9;

// Moves a piece no further than needed for a strip of it to show.
void KeepInReach(const BoardState& state, GamePiece& piece) {
  const double width = state.pieceWidth.value();
  const double height = state.pieceHeight.value();
  const double strip = std::min(kStrip, width);
  piece.left.Set(std::clamp(piece.left.value(), strip - width, kSceneWidth - strip));
  piece.top.Set(std::clamp(piece.top.value(), strip - height, kGroundLine));
}

void ScalePieces(BoardState& state, double factor) {
  const double width = state.pieceWidth.value() * factor;
  const double height = state.pieceHeight.value() * factor;
  if (width < kLeastWidth || height > kSceneHeight) return;
  state.pieceWidth.Set(width);
  state.pieceHeight.Set(height);
  for (GamePiece& piece : state.pieces) KeepInReach(state, piece);
}

double StartLeft(int piece) { return kStartLeft.at(static_cast<std::size_t>(piece)) * kSceneWidth; }

double StartTop(const BoardState& state) {
  return kSceneHeight - kStartHeights * state.pieceHeight.value();
}

// A step's name for what happens to a piece.
std::string NameOf(const Board& board, int piece) {
  return "game piece, " + board.state.pieces.at(static_cast<std::size_t>(piece)).tag.value();
}

// The piece for a player without a photo. It goes by the store, not by the box, so a piece that was
// freed by hand is passed over until the next reset.
void PlaceNamePlate(BoardState& state, const std::string& name) {
  for (GamePiece& piece : state.pieces) {
    if (!piece.store.value().empty() || !piece.plate.value().empty()) continue;
    piece.plate.Set(name);
    piece.tag.Set(name);
    return;
  }
}

// One whose player is neither at bat nor on a base, as from before the board kept the bases.
void FreeIdlePiece(BoardState& state) {
  const bool bats = !state.BatterOf.value().empty();
  for (GamePiece& piece : state.pieces) {
    const std::string& name = piece.tag.value();
    if (BaseOf(state, name) > 0 || (bats && name == state.lbl_Selected.value())) continue;
    EmptyPiece(piece);
    return;
  }
}

}  // namespace

std::filesystem::path PhotoFile(const BoardState& state, const std::string& name) {
  // Joined as text: a name that looks like a path of its own must not leave the folder behind.
  return PathOf(state.lbl_PhotoPath.value() + "/" + name + ".jpg");
}

void PlaceBatterPhoto(Board& board, const std::string& name) {
  auto& pieces = board.state.pieces;
  if (KeepsBases(board.state)) {
    // A runner who is named out of turn has one.
    if (PieceOf(board.state, name)) return;
    if (std::ranges::none_of(pieces, &GamePiece::free)) FreeIdlePiece(board.state);
    // One whose player was taken off, whose photo waits for a reset, is as good as any other.
    const auto free = std::ranges::find_if(pieces, &GamePiece::free);
    if (free != pieces.end()) free->store.Set({});
  }
  const auto piece =
      std::find_if(pieces.begin(), pieces.end(), [](const GamePiece& p) { return p.free(); });
  if (piece == pieces.end()) return;
  const auto photo = board.platform.pictures.Load(PhotoFile(board.state, name));
  if (!photo) {
    PlaceNamePlate(board.state, name);
    return;
  }
  piece->store.Set(*photo);
  piece->picture.Set(*photo);
  piece->tag.Set(name);
}

void EmptyPiece(GamePiece& piece) {
  piece.picture.Set({});
  piece.plate.Set("");
  piece.store.Set({});
}

void LeaveOnePieceEach(BoardState& state) {
  for (std::size_t i = 0; i < state.pieces.size(); ++i) {
    GamePiece& piece = state.pieces[i];
    if (!piece.free() && PieceOf(state, piece.tag.value()) != static_cast<int>(i))
      EmptyPiece(piece);
  }
}

void TakeOffBoard(Board& board, const std::string& name) {
  for (GamePiece& piece : board.state.pieces) {
    if (piece.tag.value() != name) continue;
    piece.picture.Set({});
    piece.plate.Set("");
  }
}

void FreePiece(Board& board, int piece) {
  const Gesture gesture(board, NameOf(board, piece));
  ClearPlate(board, piece);
  board.state.pieces.at(piece).tag.Set("");
}

void ClearPlate(Board& board, int piece) {
  const Gesture gesture(board, NameOf(board, piece));
  GamePiece& cleared = board.state.pieces.at(piece);
  cleared.picture.Set({});
  cleared.plate.Set("");
}

void ResetGamePieces(Board& board) {
  const Gesture gesture(board, "RESET");
  for (GamePiece& piece : board.state.pieces) {
    piece.store.Set({});
    piece.picture.Set({});
  }
  PlacePiecesAtStart(board.state);
  for (GamePiece& piece : board.state.pieces) piece.plate.Set("");
  ClearBases(board);
  ScoreUpdate(board);
  ChangeOfState(board);
}

void MovePiece(Board& board, int piece, double middleX, double middleY) {
  const Gesture gesture(board, NameOf(board, piece), "move of piece " + std::to_string(piece));
  GamePiece& moved = board.state.pieces.at(piece);
  moved.left.Set(middleX - board.state.pieceWidth.value() / 2);
  moved.top.Set(middleY - board.state.pieceHeight.value() / 2);
  KeepInReach(board.state, moved);
}

void EnlargePieces(Board& board) {
  const Gesture gesture(board, "PHOTO SIZE, BIG");
  ScalePieces(board.state, kBigFactor);
}

void ShrinkPieces(Board& board) {
  const Gesture gesture(board, "PHOTO SIZE, SM");
  BoardState& state = board.state;
  ScalePieces(state, kSmallFactor);
  const bool below = std::any_of(state.pieces.begin(), state.pieces.end(),
                                 [](const GamePiece& p) { return p.top.value() >= kGroundLine; });
  if (!below) return;
  for (GamePiece& piece : state.pieces) piece.top.Set(kGroundLine - state.pieceHeight.value());
}

void PlacePiecesAtStart(BoardState& state) {
  for (std::size_t i = 0; i < state.pieces.size(); ++i) {
    state.pieces[i].left.Set(StartLeft(static_cast<int>(i)));
    state.pieces[i].top.Set(StartTop(state));
  }
}

bool StandsAtStart(const BoardState& state, int piece) {
  const GamePiece& stands = state.pieces.at(static_cast<std::size_t>(piece));
  return stands.left.value() == StartLeft(piece) && stands.top.value() == StartTop(state);
}

}  // namespace dtb
