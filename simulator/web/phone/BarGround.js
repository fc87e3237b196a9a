import { html } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { objectFitOf } from '/phone/contentMode.js';
import { setOnly } from '/phone/look.js';

const sides = {
  topLeft: 'left top', top: 'center top', topRight: 'right top', left: 'left center', center: 'center',
  right: 'right center', bottomLeft: 'left bottom', bottom: 'center bottom', bottomRight: 'right bottom',
};

/**
 * What lies behind the titles and buttons of a bar: colour, picture, the line under it or a picture in its place. Where
 * a large title stands under the bar the line is below that, and the bar not `lined`.
 */
export function BarGround({ look, shown, lined }) {
  const style = setOnly({
    background: groundColor(look),
    backdropFilter: look.blur ? undefined : 'none',
    borderBottomColor: lined ? lineColor(look) : 'transparent',
  });
  return html`
    <div class="bar-ground" data-shown=${shown} style=${style} aria-hidden="true">
      ${look.image && html`<${Picture} class="bar-picture" image=${look.image} style=${pictureStyle(look)} />`}
      ${look.shadow && look.shadowImage && html`
        <${Picture} class="bar-shadow" image=${look.shadowImage} style=${{ width: '100%' }} />`}
    </div>`;
}

/** The CSS colour of the line under a bar; undefined for the system's own. */
export function lineColor(look) {
  return look.shadow && !look.shadowImage ? cssColor(look.shadowColor) : 'transparent';
}

/** The CSS colour behind a bar; undefined for the system's own. */
export function groundColor(look) {
  return cssColor(look.color) ?? (look.blur ? undefined : 'none');
}

function pictureStyle({ imageMode }) {
  const place = sides[imageMode];
  return {
    width: '100%', height: '100%', objectFit: place ? 'none' : objectFitOf(imageMode), objectPosition: place ?? 'center',
  };
}
