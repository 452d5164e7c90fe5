#include "ui/views/EngineLease.h"

#include "core/Priority.h"

#include <malloc.h>
#include <QCoreApplication>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>

void qml_register_types_Kestrio_Ui();

namespace kestrio {

namespace {

// People who capture often open the next editor soon; loading the views again takes longer.
constexpr std::chrono::seconds engineStays(8);

struct SharedEngine {
    QPointer<QQmlEngine> engine;
    QPointer<QTimer> release;
    int leases = 0;
};

SharedEngine& shared() {
    static SharedEngine state;
    return state;
}

void releaseEngine() {
    if (shared().leases > 0) return;
    delete shared().engine.data();
    // What was freed piece by piece stays with the allocator otherwise.
    malloc_trim(0);
}

void prepareProcess() {
    // A linker drops a registration that nobody calls.
    qml_register_types_Kestrio_Ui();
    preferWindows();
    // Drawn by the processor, windows come up sooner than with a graphics context, and what
    // they show most is a picture that the processor has made.
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
    shared().release = new QTimer(QCoreApplication::instance());
    shared().release->setSingleShot(true);
    QObject::connect(shared().release, &QTimer::timeout, releaseEngine);
    // The engine's threads end only while there still is an application.
    qAddPostRoutine([] { delete shared().engine.data(); });
}

}  // namespace

EngineLease::EngineLease() {
    static const bool isPrepared = (prepareProcess(), true);
    Q_UNUSED(isPrepared)
    ++shared().leases;
    if (shared().engine) return;
    shared().engine = new QQmlEngine;
    shared().engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
}

EngineLease::~EngineLease() {
    if (--shared().leases == 0 && shared().release) shared().release->start(engineStays);
}

QQmlEngine& EngineLease::engine() const {
    return *shared().engine;
}

}  // namespace kestrio
