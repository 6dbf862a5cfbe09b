// The style and the script of a picture's page.
#pragma once

namespace command {

inline constexpr char kPictureStyle[] = R"css(
:root { --page: #fff; --ink: #222; --faint: #666; --edge: #fff; }
@media (prefers-color-scheme: dark) {
  :root { --page: #1d1f21; --ink: #eee; --faint: #aaa; --edge: #1d1f21; }
}
#picture { background: var(--page); font: 12px system-ui, "DejaVu Sans", sans-serif; }
#picture text { fill: #1b1b1b; pointer-events: none; unicode-bidi: plaintext; }
#picture .title { fill: var(--ink); font-size: 18px; font-weight: 600; }
#picture .summary, #picture .key { fill: var(--faint); }
#picture .detail { fill: var(--ink); }
#blocks text { dominant-baseline: central; }
#blocks svg { cursor: pointer; overflow: visible; }
#blocks svg.wide { overflow: hidden; }
#blocks rect { shape-rendering: crispEdges; }
#blocks .wide rect { stroke: var(--edge); stroke-width: 1; }
#blocks svg:hover rect { stroke: var(--ink); }
#blocks .merged rect { fill-opacity: .55; }
#blocks .above rect { fill-opacity: .4; }
#blocks .hit rect { fill: #ff4fa0; }
.c0 rect { fill: #d5d5d5; } .c1 rect { fill: #8ecae6; } .c2 rect { fill: #a0dbc8; }
.c3 rect { fill: #c5e5a5; } .c4 rect { fill: #f6e58d; } .c5 rect { fill: #fbc687; }
.c6 rect { fill: #f4a582; } .c7 rect { fill: #eda6c4; } .c8 rect { fill: #cbb2e6; }
.c9 rect { fill: #a9b7f0; } .c10 rect { fill: #d9c2a7; }
)css";

// Blocks are in pre-order, so the ancestors of one are the last ones before it in higher rows.
inline constexpr char kPictureScript[] = R"js(
(function () {
  var picture = document.getElementById('picture');
  var detail = picture.querySelector('.detail');
  var search = document.getElementById('search');
  var blocks = Array.prototype.map.call(document.querySelectorAll('#blocks > svg'), function (e) {
    return { e: e, x: parseFloat(e.getAttribute('x')), w: parseFloat(e.getAttribute('width')),
             y: parseFloat(e.getAttribute('y')), t: e.firstElementChild.textContent };
  });
  var label = function (b) { return b.t.split('\n')[0]; };
  var ancestors = function (i) {
    var found = [];
    for (var y = blocks[i].y, k = i - 1; k >= 0 && y > blocks[0].y; --k) {
      if (blocks[k].y < y) { y = blocks[k].y; found.unshift(k); }
    }
    return found;
  };
  var path = function (i) {
    return ancestors(i).concat(i).map(function (k) { return label(blocks[k]); }).join(' \u203a ');
  };
  var show = function (b, x, w) {
    b.e.setAttribute('x', x + '%');
    b.e.setAttribute('width', w + '%');
    b.e.classList.toggle('wide', w >= .4);
    var text = b.e.querySelector('text');
    if (w < 3) { if (text) b.e.removeChild(text); return; }
    if (text) return;
    text = document.createElementNS('http://www.w3.org/2000/svg', 'text');
    text.setAttribute('x', 4);
    text.setAttribute('y', '50%');
    text.textContent = label(b);
    b.e.appendChild(text);
  };
  var whole = function () {
    blocks.forEach(function (b) {
      b.e.style.display = '';
      b.e.classList.remove('above');
      show(b, b.x, b.w);
    });
    detail.textContent = '';
  };
  var zoom = function (i) {
    var z = blocks[i];
    var end = i + 1;
    while (end < blocks.length && blocks[end].y > z.y) ++end;
    var above = ancestors(i);
    blocks.forEach(function (b, k) {
      var over = above.indexOf(k) >= 0;
      var inside = k >= i && k < end;
      b.e.style.display = inside || over ? '' : 'none';
      b.e.classList.toggle('above', over);
      if (over) show(b, 0, 100);
      if (inside) show(b, (b.x - z.x) / z.w * 100, b.w / z.w * 100);
    });
    detail.textContent = z.t.replace('\n', ': ') + '. Esc shows the whole outline.';
  };
  blocks.forEach(function (b, i) {
    b.e.addEventListener('click', function () { zoom(i); });
    b.e.addEventListener('mouseenter', function () {
      detail.textContent = path(i) + ': ' + b.t.split('\n').slice(1).join(', ');
    });
  });
  document.addEventListener('keydown', function (event) {
    if (event.key === 'Escape') whole();
  });
  if (search) search.addEventListener('input', function () {
    var text = search.value.toLowerCase();
    var hits = 0;
    blocks.forEach(function (b) {
      var hit = text !== '' && label(b).toLowerCase().indexOf(text) >= 0;
      b.e.classList.toggle('hit', hit);
      if (hit) ++hits;
    });
    detail.textContent = text === '' ? '' : hits + ' of the blocks bear this text.';
  });
}());
)js";

}  // namespace command
