// The box score proves itself: what is found, and what is true once it was put right.
#include "fake_platform.h"
// After the test library's own header, which the one above includes.
#include <rapidcheck/gtest.h>

namespace dtb {
namespace {

TEST(Proof, FindsWhatDoesNotAgree) {
  Check("proof", R"(
A half-inning by the book, and one that ends before the third out.
1B RBI HR GO K FO => -
1B GO => L made 0 outs, 0.00 innings, but would be saved with 0.33. -> 0.00;

A reserve who never stood on the first piece.
bat:v9 up:v BB GO GO GO => J has 1 BB but would not be saved. -> 1;
bat:v9 up:v RBI HR GO GO GO => J has 1 HR, 1 RBI and 1 AB but would not be saved. -> 1;
unbat:v AB GO GO GO => A row without a name has 1 AB but would not be saved.;
)");
}

}  // namespace
}  // namespace dtb
