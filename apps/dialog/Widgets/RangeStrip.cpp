// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/RangeStrip.h"

#include "dialog/Models/PeoplesText.h"
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace Dialog {
namespace {

constexpr int HANDLE_WIDTH = 6;
constexpr int MARK_HEIGHT = 5;

} // namespace

RangeStrip::RangeStrip(QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    describe();
}

void RangeStrip::setTimeline(KTime wholeLength, const ExportCore::TimePoint::Rate& frameRate,
                             const std::vector<KTime>& markers) {
    constexpr long long usual = 25;
    length = wholeLength;
    rate = frameRate.value_or(usual);
    marks = markers;
    pictures.clear();
    grabbed.reset();
    setRange({KTime(0), length}, Grip::Ends);
}

int RangeStrip::pictureCount() const {
    const QSize one = pictureSize();
    return std::clamp(static_cast<int>(std::ceil(width() * devicePixelRatioF() / std::max(one.width(), 1))), 1, 24);
}

QSize RangeStrip::pictureSize() const {
    const int tall = std::max(static_cast<int>(std::lround(height() * devicePixelRatioF())), 2);
    return {tall * 16 / 9, tall};
}

void RangeStrip::setPictureCount(int count) {
    pictures.assign(static_cast<std::size_t>(std::max(count, 0)), QImage());
    update();
}

void RangeStrip::setPicture(int index, const QImage& picture) {
    if (index < 0 || index >= static_cast<int>(pictures.size()))
        return;
    pictures[static_cast<std::size_t>(index)] = picture;
    update();
}

void RangeStrip::setRange(const Types::Range& range, Grip wanted) {
    grip = wanted;
    chosen = range;
    setFocusPolicy(isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    describe();
    update();
}

void RangeStrip::describe() {
    const QString text = tr("From %1 to %2").arg(PeoplesText::length(chosen.start), PeoplesText::length(chosen.end));
    if (text == accessibleDescription())
        return;
    setAccessibleDescription(text);
    setToolTip(isEmpty() ? QString() : text);
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

QSize RangeStrip::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().lineSpacing() * 3};
}

QSize RangeStrip::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().lineSpacing() * 3};
}

int RangeStrip::xOf(KTime time) const {
    if (isEmpty())
        return 0;
    const double part = static_cast<double>(time.milliseconds()) / static_cast<double>(length.milliseconds());
    return static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * (width() - 1)));
}

KTime RangeStrip::timeAt(int x) const {
    const double part = std::clamp(static_cast<double>(x) / std::max(width() - 1, 1), 0.0, 1.0);
    return KTime(std::llround(part * static_cast<double>(length.milliseconds())));
}

namespace {

KTime timeOf(qint64 frame, const boost::rational<long long>& rate) {
    return ExportCore::TimePoint::ofFrames(std::max<qint64>(frame, 0)).at(rate);
}

/// The one that begins there, or nearest to there.
qint64 frameAt(KTime time, const boost::rational<long long>& rate) {
    constexpr double second = 1000;
    return std::llround(static_cast<double>(time.milliseconds()) / second * boost::rational_cast<double>(rate));
}

} // namespace

KTime RangeStrip::frameBefore(KTime time) const {
    const qint64 nearest = frameAt(time, rate);
    return timeOf(timeOf(nearest, rate) < time ? nearest : nearest - 1, rate);
}

KTime RangeStrip::frameBehind(KTime time) const {
    const qint64 nearest = frameAt(time, rate);
    return timeOf(timeOf(nearest, rate) > time ? nearest : nearest + 1, rate);
}

/// The end of all counts as one.
KTime RangeStrip::frameNear(KTime time) const {
    const KTime frame = timeOf(frameAt(time, rate), rate);
    const KTime off = frame > time ? frame - time : time - frame;
    return frame >= length || length - time < off ? length : frame;
}

void RangeStrip::move(End end, KTime time) {
    active = end;
    Types::Range range = chosen;
    if (end == End::In)
        range.start = std::clamp(time, KTime(0), frameBefore(range.end));
    else
        range.end = std::clamp(time, std::min(frameBehind(range.start), length), length);
    update();
    if (range == chosen)
        return;
    chosen = range;
    describe();
    Q_EMIT rangeEdited(chosen);
}

RangeStrip::End RangeStrip::endNear(int x) const {
    const int in = xOf(chosen.start), out = xOf(chosen.end);
    const int toIn = std::abs(x - in), toOut = std::abs(x - out);
    if (toIn == toOut) // of two at one place, that which can go there
        return x < in ? End::In : End::Out;
    return toIn < toOut ? End::In : End::Out;
}

void RangeStrip::mousePressEvent(QMouseEvent* event) {
    if (isEmpty() || event->button() != Qt::LeftButton)
        return event->ignore();
    const int x = event->pos().x();
    const End nearest = endNear(x);
    const int offset = xOf(nearest == End::In ? chosen.start : chosen.end) - x;
    const bool isOnEnd = std::abs(offset) <= 2 * HANDLE_WIDTH;
    if (!isOnEnd && grip == Grip::Ends)
        return event->ignore();
    active = nearest;
    grabbed = isOnEnd ? Grab{x, offset, false} : Grab{x, 0, true};
    if (grabbed->moves)
        move(active, frameNear(timeAt(x)));
    update();
}

/// A press with an unsteady hand moves nothing, and what is grabbed does not jump to the pointer.
void RangeStrip::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) // nobody told when it was let go
        grabbed.reset();
    if (!grabbed || isEmpty())
        return;
    const int x = event->pos().x();
    grabbed->moves = grabbed->moves || std::abs(x - grabbed->pressedAt) >= QApplication::startDragDistance();
    if (grabbed->moves)
        move(active, frameNear(timeAt(x + grabbed->offset)));
}

void RangeStrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        grabbed.reset();
}

void RangeStrip::keyPressEvent(QKeyEvent* event) {
    if (isEmpty())
        return QWidget::keyPressEvent(event);
    const KTime own = active == End::In ? chosen.start : chosen.end;
    const bool bySeconds = event->modifiers().testFlag(Qt::ShiftModifier);
    const KTime second(1000), leap = std::max(KTime(length.milliseconds() / 10), frameBehind(KTime(0)));
    switch (event->key()) {
    case Qt::Key_Left:
        return move(active, bySeconds ? own - second : frameBefore(own));
    case Qt::Key_Right:
        return move(active, bySeconds ? own + second : frameBehind(own));
    case Qt::Key_PageDown:
        return move(active, own - leap);
    case Qt::Key_PageUp:
        return move(active, own + leap);
    case Qt::Key_Home:
        return move(active, KTime(0));
    case Qt::Key_End:
        return move(active, length);
    case Qt::Key_Up:
    case Qt::Key_Down:
        active = active == End::In ? End::Out : End::In;
        return update();
    default:
        return QWidget::keyPressEvent(event);
    }
}

void RangeStrip::paintPictures(QPainter& painter) const {
    const auto count = static_cast<int>(pictures.size());
    for (int index = 0; index < count; ++index) {
        const QImage& picture = pictures[static_cast<std::size_t>(index)];
        const int left = width() * index / count, right = width() * (index + 1) / count;
        if (picture.isNull())
            continue;
        const QRect place(left, 0, right - left, height());
        // Each fills its place; what stands over is cut.
        const QSize size = picture.size().scaled(place.size(), Qt::KeepAspectRatioByExpanding);
        QRect whole(QPoint(), size);
        whole.moveCenter(place.center());
        painter.save();
        painter.setClipRect(place);
        painter.drawImage(whole, picture);
        painter.restore();
    }
}

void RangeStrip::paintRange(QPainter& painter) const {
    const int in = xOf(chosen.start), out = xOf(chosen.end);
    QColor shade = palette().color(QPalette::Window);
    shade.setAlphaF(0.75);
    painter.fillRect(QRect(0, 0, in, height()), shade);
    painter.fillRect(QRect(out + 1, 0, width() - out - 1, height()), shade);
    const QColor mark = palette().color(QPalette::Link);
    for (const KTime time : marks)
        painter.fillRect(QRect(xOf(time) - 1, 0, 3, MARK_HEIGHT), mark);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(QRect(in, 0, std::max(out - in, 1), height() - 1));
    for (const End end : {End::In, End::Out}) {
        const bool isActive = hasFocus() && end == active;
        const int left = std::clamp(end == End::In ? in : out - HANDLE_WIDTH + 1, 0, width() - HANDLE_WIDTH);
        const QRect handle(left, 0, HANDLE_WIDTH, height());
        painter.fillRect(handle, palette().color(isActive ? QPalette::HighlightedText : QPalette::Highlight));
        painter.setPen(palette().color(isActive ? QPalette::Highlight : QPalette::HighlightedText));
        painter.drawLine(handle.center() - QPoint(0, height() / 5), handle.center() + QPoint(0, height() / 5));
    }
}

void RangeStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    paintPictures(painter);
    if (!isEmpty())
        paintRange(painter);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace Dialog
