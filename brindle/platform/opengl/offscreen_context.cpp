#include "brindle/platform/opengl/offscreen_context.h"

#define EGL_NO_X11  // the headers of a window system have no place here
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <cstring>
#include <utility>
#include <vector>

#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {
namespace {

// A display of the software or hardware driver without a window system; EGL_NO_DISPLAY without one.
EGLDisplay open_display() {
  const char* const extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
  if (extensions == nullptr) return EGL_NO_DISPLAY;
  const auto get_display = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
      eglGetProcAddress("eglGetPlatformDisplayEXT"));
  EGLDisplay display = EGL_NO_DISPLAY;
  if (get_display != nullptr && std::strstr(extensions, "EGL_MESA_platform_surfaceless")) {
    display = get_display(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  }
  if (display == EGL_NO_DISPLAY) display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
  if (display != EGL_NO_DISPLAY && !eglInitialize(display, nullptr, nullptr)) return EGL_NO_DISPLAY;
  return display;
}

// Opened once and kept: drivers don't survive being closed and opened again in all cases.
EGLDisplay shared_display() {
  static const EGLDisplay display = open_display();
  return display;
}

struct Current {
  EGLDisplay display;
  EGLSurface draw, read;
  EGLContext context;
};

Current current_now() {
  return {eglGetCurrentDisplay(), eglGetCurrentSurface(EGL_DRAW), eglGetCurrentSurface(EGL_READ),
          eglGetCurrentContext()};
}

}  // namespace

struct OffscreenContext::State {
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLSurface surface = EGL_NO_SURFACE;
  EGLContext context = EGL_NO_CONTEXT;
  int width = 0, height = 0;
  EGLenum api_before = EGL_OPENGL_ES_API;
  Current before{};

  bool open() {
    display = shared_display();
    if (display == EGL_NO_DISPLAY) return false;
    api_before = eglQueryAPI();
    before = current_now();
    if (!eglBindAPI(EGL_OPENGL_API)) return false;
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_GREEN_SIZE,
                             8,
                             EGL_BLUE_SIZE,
                             8,
                             EGL_DEPTH_SIZE,
                             24,
                             EGL_STENCIL_SIZE,
                             8,
                             EGL_NONE};
    EGLConfig config = nullptr;
    EGLint found = 0;
    if (!eglChooseConfig(display, wanted, &config, 1, &found) || found == 0) return false;
    EGLint widest = 0, highest = 0;
    eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_WIDTH, &widest);
    eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_HEIGHT, &highest);
    if (width > widest || height > highest) return false;
    const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    surface = eglCreatePbufferSurface(display, config, size);
    context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    return surface != EGL_NO_SURFACE && context != EGL_NO_CONTEXT &&
           eglMakeCurrent(display, surface, surface, context);
  }

  ~State() {
    if (display == EGL_NO_DISPLAY) return;
    const bool was_current = context != EGL_NO_CONTEXT && eglGetCurrentContext() == context;
    if (was_current) {
      eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    if (context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
    if (surface != EGL_NO_SURFACE) eglDestroySurface(display, surface);
    eglBindAPI(api_before);
    if (was_current && before.context != EGL_NO_CONTEXT) {
      eglMakeCurrent(before.display, before.draw, before.read, before.context);
    }
  }
};

OffscreenContext::OffscreenContext(std::unique_ptr<State> state) : state_(std::move(state)) {}
OffscreenContext::~OffscreenContext() = default;

std::unique_ptr<OffscreenContext> OffscreenContext::create(int width, int height) {
  if (width < 1 || height < 1) return nullptr;
  auto state = std::make_unique<State>();
  state->width = width;
  state->height = height;
  if (!state->open()) return nullptr;
  return std::unique_ptr<OffscreenContext>(new OffscreenContext(std::move(state)));
}

int OffscreenContext::width() const {
  return state_->width;
}
int OffscreenContext::height() const {
  return state_->height;
}

bool OffscreenContext::make_current() {
  return eglBindAPI(EGL_OPENGL_API) &&
         eglMakeCurrent(state_->display, state_->surface, state_->surface, state_->context);
}

bool OffscreenContext::read_pixels(RasterBitmap& picture) {
  const int w = width(), h = height();
  if (eglGetCurrentContext() != state_->context || !picture.create(w, h)) return false;
  std::vector<BYTE> rows(static_cast<std::size_t>(w) * static_cast<std::size_t>(h) * 4);
  glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, w, h, GL_RGBA, GL_UNSIGNED_BYTE, rows.data());
  glPopClientAttrib();
  const BYTE* from = rows.data();
  for (int y = h - 1; y >= 0; --y) {
    std::uint32_t* const row = picture.row(y);
    for (int x = 0; x < w; ++x, from += 4) {
      row[x] = argb_of(RGB(from[0], from[1], from[2]));
    }
  }
  return true;
}

}  // namespace brindle
