// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExportApplication.h"
#include <QEvent>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <stdexcept>

using ExportCore::EventLoopFailures;

namespace {

/// Behaves as QCoreApplication does, without being a second one.
class PlainDelivery : public QObject {
public:
    virtual bool notify(QObject* receiver, QEvent* event) { return receiver->event(event); }
};

class Thrower : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User)
            throw std::runtime_error("out of the loop");
        if (event->type() == QEvent::User + 1)
            throw 42;
        return QObject::event(event);
    }
};

TEST(ExportApplication, WhatReachesTheEventLoopIsTold) {
    ExportCore::ExportApplication<PlainDelivery> application;
    std::exception_ptr caught;
    QObject::connect(&application.failures(), &EventLoopFailures::caught,
                     [&caught](const std::exception_ptr& error) { caught = error; });
    Thrower thrower;
    QEvent event(QEvent::User);
    EXPECT_FALSE(application.notify(&thrower, &event));
    ASSERT_TRUE(caught);
    EXPECT_THROW(std::rethrow_exception(caught), std::runtime_error);
}

TEST(ExportApplication, ExceptionsOfEveryKindAreTold) {
    ExportCore::ExportApplication<PlainDelivery> application;
    int count = 0;
    QObject::connect(&application.failures(), &EventLoopFailures::caught, [&count] { ++count; });
    Thrower thrower;
    QEvent event(static_cast<QEvent::Type>(QEvent::User + 1));
    EXPECT_FALSE(application.notify(&thrower, &event));
    EXPECT_EQ(count, 1);
}

TEST(ExportApplication, EverythingElsePasses) {
    ExportCore::ExportApplication<PlainDelivery> application;
    int count = 0;
    QObject::connect(&application.failures(), &EventLoopFailures::caught, [&count] { ++count; });
    Thrower thrower;
    QEvent event(QEvent::LanguageChange);
    application.notify(&thrower, &event);
    EXPECT_EQ(count, 0);
}

} // namespace
