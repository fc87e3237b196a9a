// What a drawing context is made of. Included by the sources of CGContext only.
#pragma once

#import <CoreGraphics/CGBitmapContext.h>
#import <CoreGraphics/CGContext.h>
#import <CoreGraphics/PixelLayout.hpp>
#import <CoreGraphics/RGBA.hpp>

#include <cairo.h>

#include <memory>
#include <optional>
#include <vector>

namespace sim {

/// In pixels, whatever the transform.
struct ContextShadow {
  double x = 0;
  double y = 0;
  double sigma = 0;
  RGBA color;
};

/// What cairo does not keep by itself.
struct DrawState {
  RGBA fill{0, 0, 0, 1};
  RGBA stroke{0, 0, 0, 1};
  double alpha = 1;
  cairo_operator_t blend = CAIRO_OPERATOR_OVER;
  cairo_filter_t filter = CAIRO_FILTER_GOOD;
  std::optional<ContextShadow> shadow;
  std::shared_ptr<cairo_surface_t> mask;  ///< Alpha of the size of the context; null: nothing is masked.
};

/// The caller's view of the pixels.
class ContextMemory final {
 public:
  ContextMemory(void *data, std::size_t bytesPerRow, PixelLayout layout, CGColorSpaceRef space, CGBitmapInfo info)
      : data_(static_cast<std::uint8_t *>(data)), bytesPerRow_(bytesPerRow), layout_(layout), info_(info) {
    space_ = CGColorSpaceRetain(space);
  }
  ~ContextMemory();
  ContextMemory(const ContextMemory &) = delete;
  ContextMemory &operator=(const ContextMemory &) = delete;

  void *data() const noexcept { return data_; }
  std::size_t bytesPerRow() const noexcept { return bytesPerRow_; }
  PixelLayout layout() const noexcept { return layout_; }
  CGColorSpaceRef space() const noexcept { return space_; }
  CGBitmapInfo info() const noexcept { return info_; }

  /// Before and after what is drawn on `surface`, which has these pixels.
  void load(cairo_surface_t *surface) const;
  void store(cairo_surface_t *surface) const;

  std::unique_ptr<std::uint8_t[]> own;  ///< The memory, where it is the context's.
  CGBitmapContextReleaseDataCallback release = nullptr;
  void *releaseInfo = nullptr;

 private:
  /// Whether cairo draws in the memory itself.
  bool isDrawnIn(cairo_surface_t *surface) const;

  std::uint8_t *data_;
  std::size_t bytesPerRow_;
  PixelLayout layout_;
  CGColorSpaceRef space_;  // Owned.
  CGBitmapInfo info_;
};

}  // namespace sim

@interface SIMContext : NSObject {
 @public
  cairo_t *_cairo;  // Owned.
  BOOL _opaque;
  cairo_matrix_t _base;  // From points to pixels, before anything else.
  sim::DrawState _state;
  std::vector<sim::DrawState> _saved;
  std::vector<std::size_t> _layers;             // How many states were saved when each transparency layer began.
  std::unique_ptr<sim::ContextMemory> _memory;  // Null: cairo's own.
}
@end

namespace sim {

inline SIMContext *contextObject(CGContextRef context) { return (SIMContext *)context; }

/// The pixels are the memory's before, and the memory has them afterwards.
class MemoryAccess final {
 public:
  explicit MemoryAccess(SIMContext *context) : context_(context) {
    if (context->_memory) context->_memory->load(cairo_get_target(context->_cairo));
  }
  ~MemoryAccess() {
    if (context_->_memory) context_->_memory->store(cairo_get_target(context_->_cairo));
  }
  MemoryAccess(const MemoryAccess &) = delete;
  MemoryAccess &operator=(const MemoryAccess &) = delete;

 private:
  SIMContext *context_;
};

/// Whether what is drawn has to be drawn by itself first.
inline bool needsGroup(const DrawState &state) { return state.shadow || state.mask; }

/// Puts `drawn`, a group of this context, onto what is there, with its shadow, blend mode and mask. Takes it over.
void compose(SIMContext *context, cairo_pattern_t *drawn);

/// Runs `draw`, which paints with the state's operator, under the state's shadow and mask.
template <typename Draw>
void paint(SIMContext *context, Draw draw) {
  const MemoryAccess access(context);
  if (!needsGroup(context->_state)) return draw();
  const cairo_operator_t blend = context->_state.blend;
  context->_state.blend = CAIRO_OPERATOR_OVER;
  cairo_push_group(context->_cairo);
  draw();
  cairo_pattern_t *drawn = cairo_pop_group(context->_cairo);
  context->_state.blend = blend;
  compose(context, drawn);
}

}  // namespace sim
