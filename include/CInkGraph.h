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
    CInkGraph();

    // Frees m_pImage. m_pWidthCache is not freed here.
    virtual ~CInkGraph();

    // Paints the object on the host's layers: on the working surface `p2` always, and once committed also on
    // the ink layer `p4` and the page `p1`, in that order. `p3` (the background picture) and `reserved` are not
    // used here. `rc` is the rectangle to repaint, in canvas pixels. A non-zero `skip` suppresses all painting.
    virtual void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int reserved, int skip);

    // Paints the object's own appearance on one painter, within `rect` and the object's own rectangle. Most
    // tools leave their clip on the painter: give each object a painter whose clip may change.
    virtual void Draw(QPainter &painter, QRect &rect);

    // Tells a tool that keeps canvas-sized pixels how large the canvas is. Does nothing in other tools.
    virtual void SetCanvasSize(QSize size);

    // Sets the pen width, in pixels.
    virtual void SetWidth(int width);

    virtual void SetColor(QColor color);

    // The number of points; shapes return how many the current stroke has placed instead.
    virtual int GetPointCount();

    // Commits the object, for example when the host changes tools. Returns false, and commits nothing, while
    // the object holds no point.
    virtual bool FinishGraph() = 0;

    // The rectangle that the object now covers on screen: pen, handles, name label and icon included. Also
    // lays out m_rcName and m_rcIcon.
    virtual QRect GetUpdateRect() = 0;

    virtual ModifyType GetModifyType();

    // What a press at `pt` would do, for the cursor of a hovering pointer; MT_NONE unless the object is edited.
    virtual ModifyType AroundHotPts(QPoint pt);

    // Lays the frame and its handles out around `box`. See ink-reset-bottom-left for the bottom-left handle.
    virtual void ResetHotData(QRect box);

    // Feeds one pointer event: `code` is a PointerEvent, `pt` the position in canvas pixels. What must be
    // repainted is united into `update`, which is never cleared. A committed object ignores every event.
    virtual void AddPoint(int code, QPoint pt, QRect &update) = 0;

    // Whether a press at `pt` would edit the object; a press elsewhere commits it.
    virtual bool IsPtInModifyZone(QPoint pt);

    // The handle under `pt`, MT_MOVE inside the frame, MT_NONE elsewhere. MT_MOVE also stores `pt` in m_ptLast.
    virtual ModifyType DecideModiFyType(QPoint pt);

    // Applies one step of an editing drag of the given type.
    virtual void ModifyGraph(QPoint pt, ModifyType type);

    // Stretches the object by the handle in m_modifyType, which is dragged to `pt`. The box never shrinks
    // below 15 pixels and never mirrors. m_ptCenter is left to AdjustGraph.
    virtual void StretchGraph(QPoint pt);

    // Shifts the points, but not the handles.
    virtual void MoveGraph(float dx, float dy);
    virtual void MoveGraph(QPoint to, QPoint from);

    // Lays the frame and its handles out around the points' integer bounding box, widened by the margins `mx`
    // and `my`. Does nothing without points.
    virtual void SetHotData(int mx, int my);

    // The bearing of `pt` around `center`: whole degrees, 0 straight up, clockwise.
    virtual float CalcRotateAngle(QPoint pt, QPointF center);

    // Paints the frame and the handles, or a shade over an object that somebody else drew. Tests no flag.
    virtual void DrawHotShape(QPainter &painter);

    // Settles the centre of a rotated object after a stretch. The argument is not used.
    virtual void AdjustGraph(float angle);

    // Names are stored as at most 32 UTF-16 units; a longer name is cut and has no terminator.
    void SetOwnerName(QString name);
    void SetDrawerName(QString name);
    void SetOwnerIP(unsigned int ip);
    void SetDrawerIP(unsigned int ip);
    void ShowDrawerName(int show);
    void ShowDrawerIcon(int show);

    // 1 when the last event only moved a provisional point, 0 when it placed or fixed one.
    int IsSparePoint();

    float GetRotateAngle();

    // Where the drawer's name label and icon would be painted. Both paint nothing: the host knows m_rcName and
    // m_rcIcon and paints them.
    void DrawStudentName(QPainter &painter);
    void DrawGraphIcon(QPainter &painter);

    // Euclidean distance in single precision.
    float CalcGapOfpoints(QPointF a, QPointF b);
    float CalcGapOfpoints(QPoint a, QPoint b);

    // Shifts the frame, its handles and its centre.
    void MoveHotData(float dx, float dy);

    // The corners of the frame when the handle in m_modifyType is dragged to `pt` (in the object's frame), and
    // the handle that stays fixed. Corners that the handle does not move are left as the caller passed them.
    void CalcStretchPoint(QPoint &topLeft, QPoint &bottomRight, QPoint pt, QPointF &anchor);

    // Integer bounding box of `points`: as wide and high as their extent, so the far edge is left out. Null
    // for an empty list.
    QRect GetRect(QVector<QPointF> &points);

    // A rectangle that covers the object with its handles at any angle.
    QRect GetRotateUpDateRect();

    // Decodes an image file of `len` bytes at `data`; the format is told from the bytes. Returns a new image
    // that the caller owns: a null image, never a null pointer, when the bytes cannot be decoded or would
    // decode to more than 256 megapixels.
    QImage *ImageFromMem(void *data, int len);

    int m_nWidth{1};      // pen width, pixels
    int m_nPointCount{0}; // points placed by the current stroke
    QColor m_color{0, 0, 0, 255};
    QVector<QPointF> m_graphData; // points, canvas pixels
    int m_modifyType{MT_NONE};    // ModifyType of the current drag
    int m_bFinished{0};           // committed
    int m_bEditMode{0};           // formed: events edit the object
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
    int m_bShowDrawerName{0};
    int m_bShowDrawerIcon{0};
    int m_bSparePoint{0};        // see IsSparePoint
    int m_bHideHotShape{0};      // set at the commit: no handles are painted
    unsigned int m_nOwnerIP{0};  // IPv4
    unsigned int m_nDrawerIP{0}; // IPv4
    ushort m_szOwnerName[32]{};  // UTF-16
    ushort m_szDrawerName[32]{}; // UTF-16

private:
    Q_DISABLE_COPY(CInkGraph)
};
