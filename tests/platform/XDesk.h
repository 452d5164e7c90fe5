#pragma once

#include "platform/linux/x11/XcbConnection.h"
#include "support/Waiting.h"

#include <QPainter>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>

#include <gtest/gtest.h>
#include <xcb/shape.h>

namespace kestrio {

/// Every pixel differs from its neighbours, also in its last bit.
inline QImage pattern(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7 + y, y * 5 + 1, (x ^ y) + 128));
    return image;
}

/// A window of this program that shows a picture pixel for pixel.
class PictureWindow : public QRasterWindow {
  public:
    PictureWindow(QImage picture, QPoint position, Qt::WindowFlags flags = Qt::Window)
        : picture_(std::move(picture)) {
        setFlags(flags);
        setTitle(QStringLiteral("Picture"));
        setGeometry(QRect(position, picture_.size()));
        setMinimumSize(picture_.size());
        show();
        EXPECT_TRUE(waitUntil([this] { return isPainted_; }));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).drawImage(0, 0, picture_);
        isPainted_ = true;
    }

  private:
    QImage picture_;
    bool isPainted_ = false;
};

/// A window manager for the length of a test.
class WindowManager {
  public:
    WindowManager() {
        process_.setProcessChannelMode(QProcess::MergedChannels);
        // What it lists as supported is there before it looks after windows.
        const QByteArray sign = "looks after windows";
        process_.start(QStringLiteral("openbox"),
                       {QStringLiteral("--sm-disable"), QStringLiteral("--startup"),
                        QStringLiteral("echo ") + QString::fromLatin1(sign)});
        QByteArray output;
        EXPECT_TRUE(waitUntil([&] {
            output += process_.readAll();
            return output.contains(sign);
        })) << "no openbox";
    }

    ~WindowManager() {
        process_.terminate();
        process_.waitForFinished();
    }

  private:
    QProcess process_;
};

/// A window of another program, which the server itself paints in one colour.
class ForeignWindow {
  public:
    ForeignWindow(QRect place, std::uint32_t color, bool isManaged = true) {
        EXPECT_TRUE(connection.open());
        handle = connection.handle();
        id = xcb_generate_id(handle);
        const std::uint32_t values[] = {color, !isManaged};
        xcb_create_window(
            handle, XCB_COPY_FROM_PARENT, id, connection.screen().root,
            static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
            static_cast<std::uint16_t>(place.width()), static_cast<std::uint16_t>(place.height()),
            0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
            XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        // The window manager leaves what was placed by the user where it is.
        const std::uint32_t hints[18] = {1, static_cast<std::uint32_t>(place.x()),
                                         static_cast<std::uint32_t>(place.y())};
        set("WM_NORMAL_HINTS", "WM_SIZE_HINTS", {hints, hints + 18});
    }

    ~ForeignWindow() { xcb_destroy_window(handle, id), sync(); }

    void set(const char* property, const char* type, const std::vector<std::uint32_t>& values) {
        xcb_change_property(handle, XCB_PROP_MODE_REPLACE, id, intern(property), intern(type), 32,
                            static_cast<std::uint32_t>(values.size()), values.data());
    }

    void setAtoms(const char* property, std::initializer_list<const char*> names) {
        std::vector<std::uint32_t> atoms;
        for (const char* name : names)
            atoms.push_back(intern(name));
        set(property, "ATOM", atoms);
    }

    void setText(const char* property, const char* type, const QByteArray& text) {
        xcb_change_property(handle, XCB_PROP_MODE_REPLACE, id, intern(property), intern(type), 8,
                            static_cast<std::uint32_t>(text.size()), text.constData());
    }

    void setShape(const std::vector<xcb_rectangle_t>& parts) {
        xcb_shape_rectangles(handle, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                             XCB_CLIP_ORDERING_UNSORTED, id, 0, 0,
                             static_cast<std::uint32_t>(parts.size()), parts.data());
    }

    void map() {
        xcb_map_window(handle, id);
        EXPECT_TRUE(waitUntil([this] { return isViewable(); }));
    }

    void raise() {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(handle, id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        sync();
    }

    bool isViewable() {
        const XcbReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
            handle, xcb_get_window_attributes(handle, id), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    void sync() {
        std::free(xcb_get_input_focus_reply(handle, xcb_get_input_focus(handle), nullptr));
    }

    xcb_atom_t intern(const char* name) {
        const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            handle,
            xcb_intern_atom(handle, false, static_cast<std::uint16_t>(std::strlen(name)), name),
            nullptr));
        return reply->atom;
    }

    XcbConnection connection;
    xcb_connection_t* handle = nullptr;
    xcb_window_t id = 0;
};

/// A window in front of all others on which a test paints, black at first.
class PaintedWindow {
  public:
    explicit PaintedWindow(QRect place) : place_(place), window_(place, 0, false) {
        pen_ = xcb_generate_id(window_.handle);
        xcb_create_gc(window_.handle, pen_, window_.id, 0, nullptr);
        window_.map();
        window_.sync();
    }

    /// In pixels of the desktop; done when it returns.
    void paint(QRect pixels, QRgb color) {
        const std::uint32_t value = color & 0xffffff;
        xcb_change_gc(window_.handle, pen_, XCB_GC_FOREGROUND, &value);
        const QRect within = pixels.translated(-place_.topLeft());
        const xcb_rectangle_t part = {static_cast<std::int16_t>(within.x()),
                                      static_cast<std::int16_t>(within.y()),
                                      static_cast<std::uint16_t>(within.width()),
                                      static_cast<std::uint16_t>(within.height())};
        xcb_poly_fill_rectangle(window_.handle, window_.id, pen_, 1, &part);
        window_.sync();
    }

  private:
    QRect place_;
    ForeignWindow window_;
    xcb_gcontext_t pen_ = 0;
};

}  // namespace kestrio
