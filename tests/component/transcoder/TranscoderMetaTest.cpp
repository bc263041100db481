// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder/TranscoderFixture.h"
#include <QMetaMethod>

namespace {

const QMetaObject& meta() {
    return Export::Transcoder::staticMetaObject;
}

int argumentType(Export::Transcoder& transcoder, int method, int argument) {
    int type = -7;
    void* arguments[] = {&type, &argument};
    transcoder.qt_metacall(QMetaObject::RegisterMethodArgumentMetaType, meta().methodOffset() + method, arguments);
    return type;
}

} // namespace

TEST_F(TranscoderTest, HasItsFourSignalsInOrderAndNothingElse) {
    EXPECT_STREQ(meta().className(), "Export::Transcoder");
    const char* const signatures[] = {"started()", "progressChanged(int,KTime)", "stopped()",
                                      "failed(Kestra::Proc::ProcessingError)"};
    ASSERT_EQ(meta().methodCount() - meta().methodOffset(), 4);
    for (int index = 0; index < 4; ++index) {
        const QMetaMethod method = meta().method(meta().methodOffset() + index);
        EXPECT_EQ(method.methodSignature(), signatures[index]);
        EXPECT_EQ(method.methodType(), QMetaMethod::Signal);
    }
    EXPECT_EQ(meta().propertyCount(), QObject::staticMetaObject.propertyCount());
}

TEST_F(TranscoderTest, LeavesTheArgumentOfFailedUnnamed) {
    EXPECT_EQ(meta().method(meta().methodOffset() + 3).parameterNames(), QList<QByteArray>{""});
}

TEST_F(TranscoderTest, NamesTheArgumentsOfProgress) {
    EXPECT_EQ(meta().method(meta().methodOffset() + 1).parameterNames(), (QList<QByteArray>{"percent", "remaining"}));
}

TEST_F(TranscoderTest, RegistersTheTimeOfProgressAndNoOtherArgument) {
    EXPECT_EQ(argumentType(*transcoder, 1, 1), qMetaTypeId<KTime>());
    EXPECT_EQ(argumentType(*transcoder, 1, 0), -1);
    EXPECT_EQ(argumentType(*transcoder, 3, 0), -1);
    EXPECT_EQ(argumentType(*transcoder, 0, 0), -1);
    EXPECT_EQ(argumentType(*transcoder, 2, 0), -1);
}

TEST_F(TranscoderTest, CastsToItsFourNamesAndToQObject) {
    for (const char* name : {"Export::Transcoder", "Stream::View<Media::Video,Kestra::Proc::IStreamVideo>",
                             "Stream::View<Media::Audio,Kestra::Proc::IStreamAudio>", "Composition::View", "QObject"})
        EXPECT_NE(transcoder->qt_metacast(name), nullptr) << name;
}

TEST_F(TranscoderTest, CastsToNothingElse) {
    for (const char* name : {"Stream::View<Media::Video, Kestra::Proc::IStreamVideo>",
                             "Stream::View<Media::Audio, Kestra::Proc::IStreamAudio>", "Stream::View", "Transcoder",
                             "Composition::CompositionView", "Media::View<Media::Video>",
                             "Message::View<Composition::Object>", "FastTrack::Suppressor", ""})
        EXPECT_EQ(transcoder->qt_metacast(name), nullptr) << name;
    EXPECT_EQ(transcoder->qt_metacast(nullptr), nullptr);
}

TEST_F(TranscoderTest, CastsToItsOwnBases) {
    void* const video = transcoder->qt_metacast("Stream::View<Media::Video,Kestra::Proc::IStreamVideo>");
    void* const audio = transcoder->qt_metacast("Stream::View<Media::Audio,Kestra::Proc::IStreamAudio>");
    void* const composition = transcoder->qt_metacast("Composition::View");
    EXPECT_EQ(transcoder->qt_metacast("Export::Transcoder"), transcoder.get());
    EXPECT_LT(static_cast<void*>(transcoder.get()), video);
    EXPECT_LT(video, audio);
    EXPECT_LT(audio, composition);
}
