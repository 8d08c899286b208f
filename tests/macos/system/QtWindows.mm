// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "RunLoop.h"
#include "Values.h"
#include "Windows.h"

#include "tests/macos/System.h"
#include "tests/macos/runtime/Runtime.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#import <AppKit/AppKit.h>

#include <map>

// Qt's views and windows on a Mac, behind the numbers that its offscreen platform has for handles. The rules
// (qcocoawindow.mm):
// - A view that lies in a window that is not of Qt's making is embedded: Qt sets its frame itself, at 0,0 of the view
//   around it, whenever the widget is resized, and resizes the widget when the view's frame is changed.
// - A view that lies in no window when its widget is shown gets a window of Qt's own.
// - raise() activates the application, unless QT_MAC_SET_RAISE_PROCESS says otherwise.

using namespace zamber;

namespace {

QWindow* windowOfNumber(std::uintptr_t number) {
    for (QWindow* const window : QGuiApplication::allWindows()) {
        if (window->handle() != nullptr && window->winId() == number) {
            return window;
        }
    }
    return nullptr;
}

} // namespace

@interface ZamberQtWindow : NSWindow {
@public
    std::uintptr_t _qtNumber;
}
@end

@implementation ZamberQtWindow
- (BOOL)isVisible {
    const QWindow* const window = windowOfNumber(_qtNumber);
    return window != nullptr && window->isVisible();
}
@end

@interface ZamberQtView : NSView {
@public
    std::uintptr_t _qtNumber;
    ZamberQtWindow* _ownWindow;
    BOOL _isBeingPlacedByQt;
}
@end

@implementation ZamberQtView
- (BOOL)isEmbedded {
    NSWindow* const window = super.window;
    return window != nil && ![window isKindOfClass:ZamberQtWindow.class];
}
- (NSWindow*)window {
    NSWindow* const around = super.window;
    if (around != nil || self.superview != nil) {
        return around;
    }
    if (_ownWindow == nil) {
        _ownWindow = [ZamberQtWindow new];
        _ownWindow->_qtNumber = _qtNumber;
    }
    return _ownWindow;
}
- (void)setFrame:(NSRect)frame {
    super.frame = frame;
    QWindow* const window = windowOfNumber(_qtNumber);
    if (window != nullptr && !_isBeingPlacedByQt && [self isEmbedded]) {
        window->resize(qRound(frame.size.width), qRound(frame.size.height));
    }
}
- (void)placeAsQtDoes {
    const QWindow* const window = windowOfNumber(_qtNumber);
    if (window == nullptr || ![self isEmbedded]) {
        return;
    }
    _isBeingPlacedByQt = YES;
    self.frame = NSMakeRect(0, 0, window->width(), window->height());
    _isBeingPlacedByQt = NO;
}
@end

namespace zamber::system {

namespace {

std::map<std::uintptr_t, ZamberQtView*>& qtViews() {
    static auto* all = new std::map<std::uintptr_t, ZamberQtView*>;
    return *all;
}

runtime::Object viewOfNumber(std::uintptr_t number) {
    ZamberQtView* __strong& view = qtViews()[number];
    if (view == nil) {
        view = [ZamberQtView new];
        view->_qtNumber = number;
    }
    return (__bridge void*)view;
}

class QtOnAMac final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize && watched->isWindowType()) {
            if (ZamberQtView* const view = viewOf(static_cast<QWindow*>(watched))) {
                [view placeAsQtDoes];
            }
        }
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            const auto* const widget = static_cast<QWidget*>(watched);
            if (widget->isWindow() && widget->windowHandle() != nullptr) {
                ZamberQtView* const view = viewOf(widget->windowHandle());
                if (view != nil && [view isEmbedded]) {
                    note("Qt shows %s in the window around it", widget->metaObject()->className());
                } else if (qobject_cast<const QWidget*>(widget)->objectName() != QString()) {
                    note("Qt shows %s in a window of its own", widget->metaObject()->className());
                }
            }
        }
        if (event->type() == QEvent::ZOrderChange && watched->isWidgetType() &&
            static_cast<QWidget*>(watched)->isWindow()) {
            bool isNumber = false;
            const int raisesProcess = qEnvironmentVariableIntValue("QT_MAC_SET_RAISE_PROCESS", &isNumber);
            if (!isNumber || raisesProcess != 0) {
                note("NSApplication activateIgnoringOtherApps: 1 by Qt's raise");
            }
        }
        return false;
    }

private:
    static ZamberQtView* viewOf(const QWindow* window) {
        if (window->handle() == nullptr) {
            return nil;
        }
        const auto found = qtViews().find(window->winId());
        return found != qtViews().end() ? found->second : nil;
    }
};

void watchQt() {
    runtime::setObjectOfNumber(viewOfNumber);
    QCoreApplication::instance()->installEventFilter(new QtOnAMac(QCoreApplication::instance()));
}
Q_COREAPP_STARTUP_FUNCTION(watchQt)

/// Once a turn, as the display cycle does it.
void layOutEmbedded() {
    for (const auto& [number, view] : qtViews()) {
        if (view.superview != nil) {
            layOut(view.superview);
        }
    }
}
const bool isStep = (addToEachTurn(layOutEmbedded), true);

} // namespace

} // namespace zamber::system
