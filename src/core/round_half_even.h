#pragma once

namespace ventarix {

// Decimal rounding of a stored double to `decimals` places, ties to the even neighbour
// (2.5 -> 2, 3.5 -> 4). The tie is judged on the shortest decimal text that reads back as the
// same double, the figure a person sees: 2.675 at two places is a tie and gives 2.68, although
// its binary value lies a hair below. A half-up rule would move totals by a cent.
// Non-finite values and negative place counts come back unchanged; a zero result is never -0.
double RoundHalfEven(double value, int decimals);

}  // namespace ventarix
