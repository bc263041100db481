// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::SourceMedia: what is to be exported.
#pragma once

#include "EditorProject/EditorProject.h"
#include "ExportCore/InputOpening.h"
#include <QObject>
#include <QStringList>
#include <memory>
#include <vector>

namespace Dialog {

/// A place of the source that has a name, or one of its ends.
struct MarkedPlace {
    QString name;
    KTime time;
};

/// Media files, one after the other, or one timeline. Opened on another thread.
class SourceMedia : public QObject {
    Q_OBJECT
public:
    enum class State {
        Empty,   ///< nothing was opened yet
        Opening, ///< under way
        Ready,
        Refused, ///< whyRefused() tells
    };
    Q_ENUM(State)

    explicit SourceMedia(QObject* parent = nullptr);
    ~SourceMedia() override;

    /// In place of what was open, or is being opened. An empty list is nothing.
    void open(const QStringList& files, const ExportCore::TimelineOptions& options = {});
    /// Where files that are not in their place are looked for, too.
    void openWithMediaIn(const QString& folder);
    /// What is missing is black and silent.
    void openWithBlack();

    State state() const { return current; }
    bool isReady() const { return current == State::Ready; }
    const QStringList& paths() const { return files; }
    const ExportCore::TimelineOptions& options() const { return timelines; }
    /// For people: one line.
    QString whyRefused() const;
    /// Of the files, from before they were read. Of one that is ready.
    const std::vector<ExportCore::FileMark>& fileMarks() const { return readMarks; }
    /// Whether it would be ready if what is missing were black.
    bool lacksMedia() const { return lacking; }
    QStringList warnings() const;
    /// The first one's name, and how many follow.
    QString name() const;
    /// Size, rates and length, for people; empty unless it is ready.
    QString facts() const;

    /// All below: of one that is ready.
    const EditorProject& project() const { return *shown; }
    const Render::Sequence& sequence() const { return *opened; }
    bool hasPictures() const { return shown->hasPictures(); }
    bool hasSound() const { return shown->hasSound(); }
    KTime duration() const { return shown->duration(); }
    ExportCore::TimePoint::Rate rate() const;
    /// Start, end, and between them, in order, what a timeline's markers, or the chapters of media, name.
    const std::vector<MarkedPlace>& places() const { return marks; }

Q_SIGNALS:
    void changed();

private:
    void onOpened(const std::exception_ptr& error);
    void show();
    void refuse(const QString& reason);

    QStringList files;
    ExportCore::TimelineOptions timelines;
    State current = State::Empty;
    QString refusal; ///< in English, as the remarks
    bool lacking = false;
    QStringList remarks;
    // As children, for who looks whose failure reaches the event loop.
    std::unique_ptr<ExportCore::InputOpening> opening;
    std::unique_ptr<Render::Sequence> opened;
    std::unique_ptr<EditorProject> shown;
    std::vector<MarkedPlace> marks;
    std::vector<ExportCore::FileMark> readMarks;
};

} // namespace Dialog
