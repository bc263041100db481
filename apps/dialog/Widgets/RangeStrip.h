// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::RangeStrip: a timeline as a strip of pictures, with the part that is chosen.
#pragma once

#include "ExportCore/TimePoint.h"
#include "Types/Range.h"
#include <QImage>
#include <QWidget>
#include <optional>
#include <vector>

namespace Dialog {

/// The two ends can be dragged, and moved by the keyboard: left and right by a frame, with Shift by a second, page keys
/// by a tenth of the whole, Home and End; up and down change from one end to the other.
class RangeStrip : public QWidget {
    Q_OBJECT
public:
    explicit RangeStrip(QWidget* parent = nullptr);

    /// Frames follow each other at `rate`; where there are none the ends go by 25 a second. A length of 0 is an empty
    /// strip.
    void setTimeline(KTime length, const ExportCore::TimePoint::Rate& rate, const std::vector<KTime>& markers);
    /// How many pictures suit its size, and how large they are, in pixels of the device.
    int pictureCount() const;
    QSize pictureSize() const;
    void setPictureCount(int count);
    void setPicture(int index, const QImage& picture);
    /// By the mouse the ends are grabbed where they are, or called to any place.
    enum class Grip { Ends, Anywhere };
    void setRange(const Types::Range& range, Grip grip);
    Types::Range range() const { return chosen; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void rangeEdited(const Types::Range& range);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class End { In, Out };
    /// Of the active end, from a press to its release.
    struct Grab {
        int pressedAt;
        int offset; ///< of the end from there
        bool moves; ///< it was drawn far enough to be meant
    };
    bool isEmpty() const { return length <= KTime(0); }
    int xOf(KTime time) const;
    KTime timeAt(int x) const;
    End endNear(int x) const;
    void move(End end, KTime time);
    KTime frameBefore(KTime time) const;
    KTime frameBehind(KTime time) const;
    KTime frameNear(KTime time) const;
    void describe();
    void paintPictures(QPainter& painter) const;
    void paintRange(QPainter& painter) const;

    KTime length;
    boost::rational<long long> rate{25};
    std::vector<KTime> marks;
    std::vector<QImage> pictures;
    Types::Range chosen;
    Grip grip = Grip::Ends;
    End active = End::In;
    std::optional<Grab> grabbed;
};

} // namespace Dialog
