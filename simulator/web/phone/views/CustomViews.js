import { html } from 'htm/preact/standalone';
import { cssColor, paintedOver } from '/colors.js';
import { useAddress } from '/images.js';
import { layerStyle, setOnly } from '/phone/look.js';
import { Border } from '/phone/RowPicture.js';
import { cellBackground, pageBackground } from '/phone/surfaces.js';
import { ControlView } from '/phone/views/ControlView.js';
import { EffectView } from '/phone/views/EffectView.js';
import { ImageView } from '/phone/views/ImageView.js';
import { Label } from '/phone/views/Label.js';
import { gradientImage, LayerContent, movedTo, placeStyle } from '/phone/views/Layer.js';
import { ScrollView } from '/phone/views/ScrollView.js';

/** What views of a `type` show behind the views in them, which are their children. */
const contents = { label: Label, image: ImageView, scroll: ScrollView, effect: EffectView };

const grounds = { cell: cellBackground, page: pageBackground };

/**
 * Views with frames of their own, in points from the top left corner. `on` is what they lie on: "cell", "page", or the
 * `{light, dark}` of a colour.
 */
export function CustomViews({ views, on }) {
  const background = grounds[on] ?? on;
  return html`
    <span class="views">
      ${views.map((view, at) => html`<${View} key=${at} view=${view} background=${background} />`)}
    </span>`;
}

/** One view where a line of text or a button would stand, with its own size. */
export function InlineView({ view, on, name }) {
  const [, , width, height] = view.frame;
  return html`
    <span class=${name} style=${{ position: 'relative', flex: 'none', width: `${width}px`, height: `${height}px` }}>
      <${CustomViews} views=${[movedTo(view, 0, 0)]} on=${on} />
    </span>`;
}

/** All texts in a view, as what names it. */
export function textOf(view) {
  return [view.accessibilityLabel || view.text, ...(view.views ?? []).map(textOf)].filter(Boolean).join(' ');
}

/**
 * `isDepicted`: the view is part of one that is told as a whole, so a picture, or lies on what layers draw; its texts
 * keep their colours.
 * `shift`: what of the coordinates that it lies in begins outside of the view around it.
 */
function View({ view, background, isDepicted, shift }) {
  const mask = useAddress(view.layer?.mask?.url);
  if (view.hidden) return null;
  const [, , width, height] = view.transform?.rect ?? view.frame;
  const below = paintedOver(paintedOver(background, view.backgroundColor), view.effect?.tint);
  const gradient = view.layer?.gradient;
  const style = setOnly({
    ...placeStyle(view, shift),
    backgroundColor: cssColor(view.backgroundColor), opacity: view.alpha ?? undefined,
    backgroundImage: gradient ? gradientImage(gradient, width, height) : undefined,
    visibility: view.layer?.mask && !mask.address ? 'hidden' : undefined,
    mask: mask.address ? `url("${mask.address}") 0 0 / 100% 100% no-repeat` : undefined,
    ...layerStyle(view.layer, view.clips),
  });
  const names = view.control ? {} : namesOf(view);
  const Content = view.control ? ControlView : contents[view.type];
  const isPainted = gradient || view.layer?.contents || view.views?.some(({ type }) => type === 'layer');
  const depicts = isDepicted || Boolean(names.role || isPainted);
  const origin = view.boundsOrigin ?? undefined;
  const children = (view.views ?? []).map((child, at) => html`
    <${View} key=${at} view=${child} background=${below} isDepicted=${depicts} shift=${origin} />`);
  const identifier = view.accessibilityIdentifier ?? view.name ?? undefined;
  return html`
    <span class="view" data-source=${view.id ?? undefined} data-identifier=${identifier}
      data-touch=${view.touchable ? view.id : undefined} data-dragged=${view.dragged || undefined}
      data-menu=${view.contextMenu ? view.id : undefined} data-interface-style=${view.interfaceStyle ?? undefined}
      style=${style} ...${names}>
      <${LayerContent} view=${view} size=${{ width, height }} />
      ${Content
        ? html`<${Content} view=${view} background=${below} isDepicted=${isDepicted}>${children}<//>`
        : children}
      <${Border} layer=${view.layer} />
    </span>`;
}

/** What an assistive technology is told of a view that the bundle made an element of its own. */
function namesOf(view) {
  if (!view.isAccessibilityElement || !view.accessibilityLabel) return {};
  const name = [view.accessibilityLabel, view.accessibilityValue].filter(Boolean).join(', ');
  return { role: 'img', 'aria-label': name, 'aria-description': view.accessibilityHint ?? undefined };
}
