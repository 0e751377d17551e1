// The cairo functions for reading and writing images, for a program that rarely needs them: the library and its many
// dependencies are loaded on the first call instead of at every program start.

#include <dlfcn.h>
#include <stdexcept>
#include <string>

#pragma GCC visibility push(hidden) // cairo's internal calls must not resolve to these
#include <cairo.h>

namespace {

void* Library() {
    static void* const library = dlopen("libcairo.so.2", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw std::runtime_error(std::string("cairo, which reads and writes images, cannot be loaded: ") + dlerror());
    return library;
}

template <typename Result, typename... Arguments>
Result Call(Result (* /*signature*/)(Arguments...), const char* name, Arguments... arguments) {
    void* const function = dlsym(Library(), name);
    if (function == nullptr)
        throw std::runtime_error(std::string("this version of cairo has no ") + name);
    return reinterpret_cast<Result (*)(Arguments...)>(function)(arguments...);
}

} // namespace

#define CALL(function, ...) Call(&function, #function, __VA_ARGS__)

extern "C" {

cairo_surface_t* cairo_image_surface_create(cairo_format_t format, int width, int height) {
    return CALL(cairo_image_surface_create, format, width, height);
}

cairo_surface_t* cairo_image_surface_create_for_data(unsigned char* data, cairo_format_t format, int width, int height,
                                                     int stride) {
    return CALL(cairo_image_surface_create_for_data, data, format, width, height, stride);
}

cairo_surface_t* cairo_image_surface_create_from_png(const char* path) {
    return CALL(cairo_image_surface_create_from_png, path);
}

cairo_surface_t* cairo_image_surface_create_from_png_stream(cairo_read_func_t read, void* closure) {
    return CALL(cairo_image_surface_create_from_png_stream, read, closure);
}

cairo_status_t cairo_surface_write_to_png_stream(cairo_surface_t* surface, cairo_write_func_t write, void* closure) {
    return CALL(cairo_surface_write_to_png_stream, surface, write, closure);
}

unsigned char* cairo_image_surface_get_data(cairo_surface_t* surface) {
    return CALL(cairo_image_surface_get_data, surface);
}

cairo_format_t cairo_image_surface_get_format(cairo_surface_t* surface) {
    return CALL(cairo_image_surface_get_format, surface);
}

int cairo_image_surface_get_width(cairo_surface_t* surface) {
    return CALL(cairo_image_surface_get_width, surface);
}

int cairo_image_surface_get_height(cairo_surface_t* surface) {
    return CALL(cairo_image_surface_get_height, surface);
}

int cairo_image_surface_get_stride(cairo_surface_t* surface) {
    return CALL(cairo_image_surface_get_stride, surface);
}

void cairo_surface_flush(cairo_surface_t* surface) {
    CALL(cairo_surface_flush, surface);
}

cairo_status_t cairo_surface_status(cairo_surface_t* surface) {
    return CALL(cairo_surface_status, surface);
}

void cairo_surface_destroy(cairo_surface_t* surface) {
    CALL(cairo_surface_destroy, surface);
}

const char* cairo_status_to_string(cairo_status_t status) {
    return CALL(cairo_status_to_string, status);
}

cairo_t* cairo_create(cairo_surface_t* target) {
    return CALL(cairo_create, target);
}

void cairo_set_source_surface(cairo_t* context, cairo_surface_t* surface, double x, double y) {
    CALL(cairo_set_source_surface, context, surface, x, y);
}

void cairo_paint(cairo_t* context) {
    CALL(cairo_paint, context);
}

void cairo_destroy(cairo_t* context) {
    CALL(cairo_destroy, context);
}
}
