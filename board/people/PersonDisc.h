#pragma once

class QPainter;
class QRectF;

namespace Board {

struct Participant;

// The first letter of the name on the person's colour; a ring around it is for who sits here.
void paintDisc(QPainter &painter, const QRectF &disc, const Participant &person);

} // namespace Board
