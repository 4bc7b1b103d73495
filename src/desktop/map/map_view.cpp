#include "desktop/map/map_view.h"

#include "core/clock.h"
#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "terrain/grid.h"
#include "ui/desk.h"
#include "ui/hover.h"
#include "ui/map_click.h"
#include "ui/plot.h"
#include "ui/selection.h"

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace sm::desktop {

namespace {

constexpr qreal GREATEST_ZOOM = 6, ZOOM_STEP = 1.22;
constexpr int FRAME_MILLISECONDS = 16;
constexpr int SCROLL_STEP = 96;   // viewport pixels of an arrow key
constexpr int MARGIN = 160;       // picture pixels that may be scrolled beyond the map
constexpr int DRAG_THRESHOLD = 5;
constexpr qreal EDGE = 16;   // bare ground shown beyond the map's edge: enough for a symbol that stands on it

/// On a map without a game.
void Paint_Hint(QPainter& painter, const QRect& area)
{
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setFont(Type_Font(Type::TITLE));
    painter.setPen(QColor(0x9f, 0xae, 0xbc));
    painter.drawText(area.adjusted(0, 0, 0, -40), Qt::AlignCenter, QStringLiteral("Open a game to see its map."));
    painter.setFont(Type_Font(Type::BODY));
    painter.drawText(
        area.adjusted(0, 24, 0, 0), Qt::AlignCenter,
        QStringLiteral("File, Start a New Game opens a scenario; File, Open Saved Game a game that was "
                       "saved."));
    painter.restore();
}

}   // namespace

/// One layer of the map, painted whole: its content is in the tables, not in items.
class Map_View::Layer : public QGraphicsItem {
public:
    Layer(Map_View& view, std::function<void(QPainter&, const Sight&)> paint)
        : view_(view), paint_(std::move(paint))
    {
    }
    QRectF boundingRect() const override { return {-40000, -40000, 80000, 80000}; }   // 16-bit places and more
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        paint_(*painter, view_.Sight_Now());
    }

private:
    Map_View& view_;
    std::function<void(QPainter&, const Sight&)> paint_;
};

Map_View::Map_View(QWidget* parent) : QGraphicsView(parent)
{
    setObjectName(QStringLiteral("map"));
    setScene(new QGraphicsScene(this));
    scene()->setItemIndexMethod(QGraphicsScene::NoIndex);
    setSceneRect(0, 0, 1, 1);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTransformationAnchor(QGraphicsView::NoAnchor);
    setResizeAnchor(QGraphicsView::AnchorViewCenter);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setCacheMode(QGraphicsView::CacheBackground);
    setOptimizationFlags(QGraphicsView::DontSavePainterState | QGraphicsView::DontAdjustForAntialiasing);
    setBackgroundBrush(QColor(0x2b, 0x36, 0x41));
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setContextMenuPolicy(Qt::NoContextMenu);

    const auto add = [&](std::function<void(QPainter&, const Sight&)> paint) {
        scene()->addItem(new Layer(*this, std::move(paint)));
    };
    add([](QPainter& p, const Sight& s) { Paint_Places(p, s); });
    add([](QPainter& p, const Sight& s) { Paint_Graphics(p, s); });
    add([](QPainter& p, const Sight& s) { Paint_Selection(p, s); });
    add([this](QPainter& p, const Sight& s) { Paint_Routes(p, s, dragging_node_ ? SEAT.PickedNode : 0, held_); });
    add([this](QPainter& p, const Sight& s) { units_.Paint(p, s); });
    add([this](QPainter& p, const Sight& s) {
        if (message_shown_) Paint_Message_Mark(p, s, message_place_);
    });
    add([this](QPainter& p, const Sight& s) { effects_.Paint(p, s); });
    add([this](QPainter& p, const Sight& s) {
        if (GameLoaded == 0) Paint_Hint(p, viewport()->rect());
        Paint_Scale(p, s, viewport()->height());
        ground_.Paint_Legend(p, viewport()->width());
    });

    frame_.setInterval(FRAME_MILLISECONDS);
    frame_.setTimerType(Qt::PreciseTimer);
    connect(&frame_, &QTimer::timeout, this, [this] { Tick(); });
    since_frame_.start();
}

Map_View::~Map_View() = default;

// ---------------------------------------------------------------------------------------------- what is shown

void Map_View::Take_Game()
{
    ground_.Take_Picture();
    ground_.Draw_Overlay();
    const QRectF picture(0, 0, Picture_Width(), Picture_Height());
    const QRectF scene = picture.adjusted(-MARGIN, -MARGIN, MARGIN, MARGIN);
    if (scene != sceneRect()) setSceneRect(scene);
    Stand_Still();
    Refresh(true);
}

void Map_View::Refresh(bool ground)
{
    const bool night = GameLoaded != 0 && Header().NIGHT;
    if (ground || night != night_) {
        night_ = night;
        if (ground) ground_.Draw_Overlay();
        resetCachedContent();
    }
    Choose_Cursor();
    viewport()->update();
}

void Map_View::Unit_Changed(int unit, bool glide)
{
    units_.Unit_Changed(unit, glide);
    if (glide) Animate();
    viewport()->update();
}

void Map_View::Drawn(const Drawing& drawing)
{
    if (drawing.KIND == Draw::CENTRE) {
        if (DESK.CENTRING && !Seen().adjusted(40, 40, -40, -40).contains(drawing.X1, drawing.Y1))
            Glide_To(drawing.X1, drawing.Y1);
        return;
    }
    effects_.Add(drawing);
    Animate();
}

void Map_View::Stand_Still()
{
    units_.Stand_Still();
    viewport()->update();
}

void Map_View::Mark_Message(QPointF place, bool shown)
{
    message_place_ = place;
    message_shown_ = shown;
    viewport()->update();
}

Sight Map_View::Sight_Now() const
{
    Sight s;
    s.TO_SCREEN = viewportTransform();
    s.SEEN = Seen();
    s.ZOOM = Zoom();
    s.PIXEL_RATIO = viewport()->devicePixelRatioF();
    return s;
}

void Map_View::drawBackground(QPainter* painter, const QRectF& rect)
{
    painter->fillRect(rect, backgroundBrush());
    Sight s = Sight_Now();
    painter->setClipRect(rect);
    ground_.Paint(*painter, s);
    if (night_) painter->fillRect(QRectF(0, 0, Picture_Width(), Picture_Height()), QColor(12, 24, 58, 78));
}

void Map_View::paintEvent(QPaintEvent* event)
{
    QGraphicsView::paintEvent(event);
    since_frame_.restart();
}

void Map_View::Paint_If_Due()
{
    if (since_frame_.elapsed() < FRAME_MILLISECONDS * 2 || !isVisible()) return;
    viewport()->update();
    QEvent now(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(window(), &now);
}

// ---------------------------------------------------------------------------------------------- moving the view

qreal Map_View::Zoom() const { return transform().m11(); }

QRectF Map_View::Seen() const { return mapToScene(viewport()->rect()).boundingRect(); }

QPointF Map_View::Picture_Point(QPointF viewport_point) const
{
    return viewportTransform().inverted().map(viewport_point);
}

qreal Map_View::Least_Zoom() const
{
    const qreal width = std::max(1, Picture_Width()), height = std::max(1, Picture_Height());
    return std::min({1.0, viewport()->width() / width, viewport()->height() / height});
}

void Map_View::Set_Zoom(qreal zoom, QPointF anchor)
{
    zoom = std::clamp(zoom, Least_Zoom(), GREATEST_ZOOM);
    if (qFuzzyCompare(zoom, Zoom())) return;
    const QPointF picture = Picture_Point(anchor);
    setTransform(QTransform::fromScale(zoom, zoom));
    Move_By(viewportTransform().map(picture) - anchor);
    if (On_View_Moved) On_View_Moved();
}

void Map_View::Zoom_Steps(qreal steps, QPointF anchor)
{
    fitted_ = false;
    const qreal from = zoom_target_ > 0 ? zoom_target_ : Zoom();
    zoom_target_ = std::clamp(from * std::pow(ZOOM_STEP, steps), Least_Zoom(), GREATEST_ZOOM);
    zoom_anchor_ = anchor;
    Animate();
}

void Map_View::Move_By(QPointF d)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(d.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(d.y()));
    if (On_View_Moved) On_View_Moved();
}

void Map_View::Show_Whole()
{
    zoom_target_ = 0;
    glide_ = QPointF();
    const qreal zoom = Least_Zoom();
    setTransform(QTransform::fromScale(zoom, zoom));
    centerOn(Picture_Width() / 2.0, Picture_Height() / 2.0);
    fitted_ = true;
    if (On_View_Moved) On_View_Moved();
}

void Map_View::Show_Forces()
{
    QRectF forces;
    const QRectF picture(0, 0, Picture_Width(), Picture_Height());
    for (int u = 1; u <= MAX_UNIT; ++u) {
        // A line of communication lies at the map's edge and is no force.
        if (!Stands_On_Map(u) || UNIT[u].TYPE == 50) continue;
        forces |= QRectF(UNIT[u].X - 0.5, UNIT[u].Y - 0.5, 1, 1);
    }
    Show_Whole();
    if (forces.isEmpty()) return;
    const QRectF room = forces.adjusted(-80, -80, 80, 80);
    const qreal fit = std::min(viewport()->width() / room.width(), viewport()->height() / room.height());
    const qreal fill = std::max((viewport()->width() - 2 * EDGE) / picture.width(),
                                (viewport()->height() - 2 * EDGE) / picture.height());
    Set_Zoom(std::max(std::min(fit, 2.0), fill), QPointF());
    Look_At(forces.center());
}

QPointF Map_View::On_Ground(QPointF centre) const
{
    const QSizeF half = QSizeF(viewport()->size()) / Zoom() / 2;
    const auto within = [edge = EDGE / Zoom()](qreal at, qreal half_view, qreal length) {
        const qreal least = half_view - edge, most = length - half_view + edge;
        return least >= most ? length / 2 : std::clamp(at, least, most);
    };
    return {within(centre.x(), half.width(), Picture_Width()),
            within(centre.y(), half.height(), Picture_Height())};
}

void Map_View::Look_At(QPointF place)
{
    const QPointF centre = On_Ground(place);
    Go_To(centre.x(), centre.y());
}

void Map_View::Go_To(qreal x, qreal y)
{
    glide_ = QPointF();
    fitted_ = false;
    centerOn(x, y);
    if (On_View_Moved) On_View_Moved();
}

void Map_View::Glide_To(qreal x, qreal y)
{
    fitted_ = false;
    glide_ = viewportTransform().map(On_Ground(QPointF(x, y))) - QRectF(viewport()->rect()).center();
    Animate();
}

void Map_View::Scroll_Steps(int columns, int rows)
{
    fitted_ = false;
    glide_ += QPointF(columns, rows) * SCROLL_STEP;
    Animate();
}

void Map_View::Settle()
{
    if (zoom_target_ > 0) Set_Zoom(zoom_target_, zoom_anchor_);
    zoom_target_ = 0;
    if (!glide_.isNull()) Move_By(glide_);
    glide_ = QPointF();
    units_.Stand_Still();
    effects_.Clear();
    viewport()->update();
}

void Map_View::Animate()
{
    if (!frame_.isActive()) frame_.start();
}

void Map_View::Tick()
{
    bool busy = false;
    if (zoom_target_ > 0) {
        const qreal left = zoom_target_ / Zoom();
        if (std::abs(left - 1) < 0.004) {
            Set_Zoom(zoom_target_, zoom_anchor_);
            zoom_target_ = 0;
        } else {
            Set_Zoom(Zoom() * std::pow(left, 0.34), zoom_anchor_);
            busy = true;
        }
    }
    if (!glide_.isNull()) {
        QPointF step = glide_ * 0.28;
        if (std::hypot(step.x(), step.y()) < 1.2) step = glide_;
        const QPoint whole(qRound(step.x()), qRound(step.y()));
        Move_By(whole);
        glide_ -= whole;
        if (std::abs(glide_.x()) < 1 && std::abs(glide_.y()) < 1) glide_ = QPointF();
        busy = true;
    }
    if (units_.Moving() || effects_.Moving()) {
        busy = true;
        viewport()->update();
    }
    if (!busy) {
        frame_.stop();
        viewport()->update();
    }
}

void Map_View::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    if (fitted_ || Zoom() < Least_Zoom()) Show_Whole();
    if (On_View_Moved) On_View_Moved();
}

// ---------------------------------------------------------------------------------------------- mouse and keys

int Map_View::Pick_Reach() const { return std::max(2, qRound(Unit_Symbol_Size(Zoom()) / 2.0 / Zoom())); }

void Map_View::Hold_Pan(bool held)
{
    space_ = held;
    Choose_Cursor();
}

void Map_View::Choose_Cursor()
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (panning_)
        shape = Qt::ClosedHandCursor;
    else if (space_)
        shape = Qt::OpenHandCursor;
    else if (MapMode != 0)
        shape = Qt::CrossCursor;
    if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

void Map_View::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->button();
    press_point_ = last_point_ = event->pos();
    may_pan_ = false;
    setFocus(Qt::MouseFocusReason);
    if (pressed_ == Qt::MiddleButton || (pressed_ == Qt::LeftButton && space_)) {
        panning_ = true;
    } else if (pressed_ == Qt::LeftButton) {
        const QPointF at = Picture_Point(event->position());
        const int reach = Pick_Reach();
        const int node_reach = std::max(2, qRound(12 / Zoom()));
        const bool picked = Map_Click(qRound(at.x()), qRound(at.y()), reach, node_reach);
        dragging_node_ = picked && MapMode == MODE_MOVE_NODE;
        held_ = at;
        may_pan_ = !picked;
    }
    Choose_Cursor();
    viewport()->update();
}

void Map_View::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint d = event->pos() - last_point_;
    const bool far = (event->pos() - press_point_).manhattanLength() > DRAG_THRESHOLD;
    if (may_pan_ && far && (event->buttons() & Qt::LeftButton) != 0) panning_ = true;
    if (panning_) {
        fitted_ = false;
        glide_ = QPointF();
        Move_By(-d);
    } else if (dragging_node_) {
        held_ = Picture_Point(event->position());
        viewport()->update();
    }
    last_point_ = event->pos();
    Choose_Cursor();
    const QPointF at = Picture_Point(event->position());
    if (On_Hover) On_Hover(qFloor(at.x()), qFloor(at.y()));
}

void Map_View::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = (event->pos() - press_point_).manhattanLength() <= DRAG_THRESHOLD;
    const QPointF at = Picture_Point(event->position());
    const int x = qRound(at.x()), y = qRound(at.y());
    if (panning_) {
        panning_ = false;
    } else if (dragging_node_) {
        dragging_node_ = false;
        // A click without a drag leaves the node in the hand: the next right click puts it down.
        if (!clicked) Put_Down_Node(x, y);
    } else if (event->button() == Qt::RightButton && clicked) {
        if (Map_Order_Click(x, y, Pick_Reach()) == Order_Click::MENU && On_Order_Menu)
            On_Order_Menu(event->globalPosition().toPoint());
    }
    pressed_ = Qt::NoButton;
    may_pan_ = false;
    Choose_Cursor();
    viewport()->update();
}

void Map_View::wheelEvent(QWheelEvent* event)
{
    const QPoint angle = event->angleDelta();
    if ((event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) != 0) {
        fitted_ = false;
        glide_ -= QPointF(angle.y() != 0 ? angle.y() : angle.x(), 0);
        Animate();
    } else if (angle.y() != 0) {
        Zoom_Steps(angle.y() / 120.0, event->position());
    }
    event->accept();
}

void Map_View::leaveEvent(QEvent* event)
{
    QGraphicsView::leaveEvent(event);
    if (On_Hover) On_Hover(-1, -1);
}

void Map_View::keyPressEvent(QKeyEvent* event) { event->ignore(); }   // keys are the window's

bool Map_View::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QPointF at = Picture_Point(help->pos());
        const std::string label = Hover(qRound(at.x()), qRound(at.y()), Pick_Reach()).LABEL;
        if (label.empty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), To_Screen(label), this);
        return true;
    }
    return QGraphicsView::viewportEvent(event);
}

}   // namespace sm::desktop
