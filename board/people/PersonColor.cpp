#include "board/people/PersonColor.h"

#include <iterator>

namespace Board {

QColor colorOf(int number)
{
    // As far apart as twelve colours are that white is read on, for those also who do not tell red from green.
    constexpr QRgb kColors[] = {0xFF0B72DF, 0xFFEB001E, 0xFF0A7F48, 0xFFC80CD6, 0xFF665701, 0xFF050090,
                                0xFFCE007A, 0xFF067EA2, 0xFF670003, 0xFF1900FF, 0xFF5E2661, 0xFF232824};
    return QColor(kColors[(unsigned(number) - 1U) % std::size(kColors)]);
}

} // namespace Board
