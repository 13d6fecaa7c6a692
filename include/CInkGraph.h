#pragma once

#include "InkExport.h"
#include "ModifyType.h"
#include "PointerEvent.h"

#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QColor>

class QImage;
class QPainter;

// Something that an object derives from its pen width and owns until the width changes.
class INK_EXPORT CInkWidthCache
{
public:
    virtual ~CInkWidthCache();
};

// One object on the shared canvas: a stroke, shape, fill or picture.
//
// A host creates the tool, feeds it pointer events with AddPoint, repaints the rectangle that each event
// reports and lets the object paint itself with Draw. The life of an object has three phases: drawing, editing
// (m_bEditMode) and committed (m_bFinished). Points are canvas pixels; angles are degrees, clockwise on screen.
// No operation reports an error or throws: bad input is absorbed by the state. All calls belong on one thread.
class INK_EXPORT CInkGraph
{
public:
    // In the drawing phase, without points; width 1, opaque black, angle 0, all flags clear.
    CInkGraph();

    // Frees m_pImage. m_pWidthCache is not freed here; see ink-width-cache-kept.
    virtual ~CInkGraph();

    // Paints the object on the host's layers: on the working surface `p2` always, and once committed also on
    // the ink layer `p4` and the page `p1`, in that order. `p3` (the background picture) and `reserved` are not
    // used here. `rc` is the rectangle to repaint, in canvas pixels. A non-zero `skip` suppresses all painting.
    // The painters stay the host's and are to be ended after the call. Draw a committed object once: translucent ink
    // doubles. Fills and selections work on the layers anew each time.
    virtual void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int reserved, int skip);

    // Paints the object's own appearance on one painter, within `rect` and the object's own rectangle. Most
    // tools leave their clip on the painter: give each object a painter whose clip may change. `rect` is in canvas
    // pixels and left as it is. See ink-clip-outlives-draw and ink-arrow-unbalanced, and ink-world-replaced for a
    // painter that is scaled or moved.
    virtual void Draw(QPainter &painter, QRect &rect);

    // Tells a tool that keeps canvas-sized pixels how large the canvas is, in pixels. Does nothing in other tools. An
    // image that has been made already keeps its size.
    virtual void SetCanvasSize(QSize size);

    // Sets the pen width, in canvas pixels. Any value is taken; what a tool does with one that is not positive is what
    // QPen does.
    virtual void SetWidth(int width);

    // Sets the colour, which is copied. One that QColor calls equal to the present one changes nothing.
    virtual void SetColor(QColor color);

    // The number of points; shapes return how many the current stroke has placed instead.
    virtual int GetPointCount();

    // Commits the object, for example when the host changes tools. Returns false, and commits nothing, while
    // the object holds no point. Reports no rectangle: ask GetUpdateRect before and after. See ink-spray-never-finishes
    // for the tool that never commits so, ink-stencil-finish-no-handles for those that then stay invisible and
    // ink-finish-lays-out for those that may come to lie elsewhere.
    virtual bool FinishGraph() = 0;

    // The rectangle that the object now covers, in canvas pixels: pen, handles, name label and icon included. Also
    // lays out m_rcName and m_rcIcon. Labels may be reported larger than they are; see ink-pen-name-doubled and
    // ink-box-name-corner-as-size.
    virtual QRect GetUpdateRect() = 0;

    // What the last press of an edit began; MT_NONE before the first. See ink-line-endpoint-as-top.
    virtual ModifyType GetModifyType();

    // What a press at `pt`, in canvas pixels, would do, for the cursor of a hovering pointer; MT_NONE unless the object
    // is edited. Not for use during a drag; see ink-hover-stores-last.
    virtual ModifyType AroundHotPts(QPoint pt);

    // Lays the frame, its handles and the pivot out around `box`, which is in canvas pixels. See ink-reset-bottom-left
    // for the bottom-left handle.
    virtual void ResetHotData(QRect box);

    // Feeds one pointer event: `code` is a PointerEvent, `pt` the position in canvas pixels. What must be
    // repainted is united into `update`, which is never cleared. A committed object ignores every event, and every
    // object ignores unknown codes and events in an order that means nothing to it. Two tools assign `update`: see
    // ink-fill-assigns-update and ink-spray-assigns-update.
    virtual void AddPoint(int code, QPoint pt, QRect &update) = 0;

    // Whether a press at `pt`, in canvas pixels, would edit the object; a press elsewhere commits it. Tests no flag.
    virtual bool IsPtInModifyZone(QPoint pt);

    // The handle within 10 pixels of `pt`, in canvas pixels, MT_MOVE inside the frame, MT_NONE elsewhere. Handles lie
    // where the rotation has turned them. MT_MOVE also stores `pt` in m_ptLast; see ink-hover-stores-last.
    virtual ModifyType DecideModiFyType(QPoint pt);

    // Applies one step of an editing drag: moves by what `pt`, in canvas pixels, differs from m_ptLast, turns the
    // object so that its top points to `pt`, or stretches it to `pt`. MT_NONE does nothing.
    virtual void ModifyGraph(QPoint pt, ModifyType type);

    // Stretches the object by the handle in m_modifyType, which is dragged to `pt`, in canvas pixels. The box never
    // shrinks below 15 pixels and never mirrors. m_ptCenter is left to AdjustGraph; see ink-stretch-keeps-pivot.
    virtual void StretchGraph(QPoint pt);

    // Shifts the points by canvas pixels, but not the handles: MoveHotData shifts those.
    virtual void MoveGraph(float dx, float dy);

    // The same, by the way that leads from `from` to `to`.
    virtual void MoveGraph(QPoint to, QPoint from);

    // Lays the frame, its handles and the pivot out around the points' integer bounding box, widened on each side by
    // the margins `mx` and `my`, in canvas pixels. Does nothing without points.
    virtual void SetHotData(int mx, int my);

    // The bearing of `pt` around `center`, both in canvas pixels: whole degrees from 0 to 360, 0 straight up,
    // clockwise.
    virtual float CalcRotateAngle(QPoint pt, QPointF center);

    // Paints the frame and the handles, or a shade over an object whose owner and drawer have different addresses, on
    // a painter that has been turned to the object's frame. Tests no flag.
    virtual void DrawHotShape(QPainter &painter);

    // Settles the centre of a rotated object after a stretch. The argument is not used. The object may jump, and may
    // not be settled: see ink-adjust-inverse and ink-adjust-both-axes.
    virtual void AdjustGraph(float angle);

    // Who the object belongs to. Stored as at most 32 UTF-16 units: a name of 32 or more has no terminator; see
    // ink-name-cut.
    void SetOwnerName(QString name);

    // Who draws it; stored as the owner's name is.
    void SetDrawerName(QString name);

    // IPv4 address of the owner, as a number that is only compared: any byte order, but the same for both.
    void SetOwnerIP(unsigned int ip);

    // IPv4 address of the drawer. Where it differs from the owner's, a shade takes the place of the handles.
    void SetDrawerIP(unsigned int ip);

    // Whether m_rcName is laid out, for the host to paint the drawer's name there: 1 or 0.
    void ShowDrawerName(int show);

    // Whether m_rcIcon is laid out, for the host to paint the drawer's icon there: 1 or 0.
    void ShowDrawerIcon(int show);

    // 1 when the last event only moved a provisional point, 0 when it placed or fixed one.
    int IsSparePoint();

    // Degrees, clockwise on screen, about m_ptCenter.
    float GetRotateAngle();

    // Called where the drawer's name label would be painted. Paints nothing: the host knows m_rcName.
    void DrawStudentName(QPainter &painter);

    // Called where the drawer's icon would be painted. Paints nothing: the host knows m_rcIcon.
    void DrawGraphIcon(QPainter &painter);

    // Euclidean distance in single precision, in the unit of the points.
    float CalcGapOfpoints(QPointF a, QPointF b);

    // The same for whole pixels.
    float CalcGapOfpoints(QPoint a, QPoint b);

    // Shifts the frame, its handles and its centre by canvas pixels. The frame moves by whole ones, cut towards zero.
    void MoveHotData(float dx, float dy);

    // The corners of the frame when the handle in m_modifyType is dragged to `pt` (in the object's frame), and
    // the handle that stays fixed. Corners that the handle does not move are left as the caller passed them, and so is
    // `anchor` where m_modifyType is no handle.
    void CalcStretchPoint(QPoint &topLeft, QPoint &bottomRight, QPoint pt, QPointF &anchor);

    // Integer bounding box of `points`: as wide and high as their extent, so the far edge is left out. Null
    // for an empty list. See ink-rect-short.
    QRect GetRect(QVector<QPointF> &points);

    // A square, in canvas pixels, that covers the object with its handles at any angle.
    QRect GetRotateUpDateRect();

    // Decodes an image file of `len` bytes at `data`; the format is told from the bytes. Returns a new image
    // that the caller owns: a null image, never a null pointer, when the bytes cannot be decoded or would
    // decode to more than 256 megapixels, or where there are none. The buffer stays the caller's.
    QImage *ImageFromMem(void *data, int len);

    int m_nWidth{1};              // pen width, pixels
    int m_nPointCount{0};         // points placed by the current stroke
    QColor m_color{0, 0, 0, 255}; // of the pen; two pens change its alpha as they paint
    QVector<QPointF> m_graphData; // points, canvas pixels
    int m_modifyType{MT_NONE};    // ModifyType of the current drag
    int m_bFinished{0};           // committed
    int m_bEditMode{0};           // formed: events edit the object; see ink-commit-keeps-edit-mode
    QPointF m_hotPts[9];          // top, bottom, left, right; top left, bottom left, top right, bottom right; knob
    QRect m_rcHot;                // box that the handles frame
    float m_fRotateAngle{0};      // degrees, clockwise, about m_ptCenter
    QPointF m_ptCenter;           // pivot of the rotation
    QPointF m_ptLast;             // pointer at the previous step of a move
    QImage *m_pImage{nullptr};    // the object's own pixels, owned
    int m_nDrawnCount{0};         // points already rendered into m_pImage
    QRect m_rcName;               // the drawer's name label
    QRect m_rcIcon;               // the drawer's icon
    QSize m_sizeName{0, 0};       // size of the name label; set by the host
    CInkWidthCache *m_pWidthCache{nullptr}; // owned; freed only where a tool says so
    int m_bShowDrawerName{0};               // see ShowDrawerName
    int m_bShowDrawerIcon{0};               // see ShowDrawerIcon
    int m_bSparePoint{0};                   // see IsSparePoint
    int m_bHideHotShape{0};                 // set at the commit: no handles are painted
    unsigned int m_nOwnerIP{0};             // IPv4
    unsigned int m_nDrawerIP{0};            // IPv4
    ushort m_szOwnerName[32]{};             // UTF-16
    ushort m_szDrawerName[32]{};            // UTF-16

private:
    Q_DISABLE_COPY(CInkGraph)
};
