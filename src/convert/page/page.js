'use strict';
(() => {
  const { columns, step, shifts } = JSON.parse(document.getElementById('times').textContent);
  const part = (id) => document.getElementById(id);
  const [audio, play, place, now, news, roll, song, marker] =
    ['sound', 'play', 'place', 'now', 'news', 'roll', 'song', 'marker'].map(part);
  const columnPx = 12, barColumns = 4;
  const lessMotion = matchMedia('(prefers-reduced-motion: reduce)');

  // The start of each column in seconds, and the end of the last one. A shift holds from its column on.
  const times = new Float64Array(columns + 1);
  for (let column = 0, next = 0, shift = 0; column <= columns; ++column) {
    while (next < shifts.length && shifts[next][0] <= column) shift = shifts[next++][1] / 1e6;
    times[column] = Math.max((column + 1) * step + shift, column ? times[column - 1] : 0);
  }
  const end = times[columns];

  // Columns are counted in fractions. Before the first column the place is 0.
  function columnAt(time) {
    if (time <= times[0]) return 0;
    if (time >= end) return columns;
    let low = 0, high = columns;
    while (high - low > 1) {
      const middle = (low + high) >> 1;
      if (times[middle] <= time) low = middle;
      else high = middle;
    }
    return low + (time - times[low]) / (times[high] - times[low]);
  }

  function timeAt(column) {
    const whole = Math.min(Math.max(Math.floor(column), 0), columns - 1);
    const rest = Math.min(Math.max(column - whole, 0), 1);
    return times[whole] + (times[whole + 1] - times[whole]) * rest;
  }

  function clock(time) {
    const seconds = Math.floor(time), two = (number) => String(number).padStart(2, '0');
    const minutes = Math.floor(seconds / 60), hours = Math.floor(minutes / 60);
    return (hours ? hours + ':' + two(minutes % 60) : minutes) + ':' + two(seconds % 60);
  }

  function words(time) {
    const seconds = Math.floor(time), parts = [];
    const add = (number, noun) => parts.push(number + ' ' + noun + (number === 1 ? '' : 's'));
    if (seconds >= 3600) add(Math.floor(seconds / 3600), 'hour');
    if (seconds >= 60) add(Math.floor(seconds / 60) % 60, 'minute');
    add(seconds % 60, 'second');
    return parts.join(' ');
  }

  // In seconds: a place just before or after a bar line counts as on it. While the song plays the
  // way after it is longer, so that two presses of a key go back two bars.
  const onLine = 0.01, onLinePlaying = 0.5;

  const barAt = (time) => Math.min(Math.floor(columnAt(time + onLine) / barColumns), Math.ceil(columns / barColumns) - 1) + 1;

  // A seek takes a moment. Until it is done the page shows the place that is wanted, and of the
  // places that come meanwhile only the last one counts.
  let wanted = null, sought = null;

  const placeNow = () => Math.min(wanted === null ? audio.currentTime : wanted, end);

  function seek(time) {
    wanted = Math.min(Math.max(time, 0), end);
    if (audio.readyState === 0 || audio.seeking) return show();
    sought = wanted;
    audio.currentTime = sought;
    show();
  }

  function seekDone() {
    if (wanted === null) return show();
    if (wanted !== sought) return seek(wanted);
    wanted = null;
    show();
  }

  audio.addEventListener('seeked', seekDone);
  audio.addEventListener('loadedmetadata', seekDone);

  // The press on the marker and what it has become: a drag of it.
  let pressed = null, dragging = null;

  // What is shown.
  let shownNow = '', shownWords = '';

  function show() {
    const time = placeNow(), column = columnAt(time), text = clock(time);
    marker.style.transform = 'translateX(' + column * columnPx + 'px)';
    place.value = column;
    place.style.setProperty('--at', column / columns * 100 + '%');
    if (text !== shownNow) now.textContent = shownNow = text;
    // A screen reader reads each change of a focused slider, so the words rest while the song plays.
    if (audio.paused || document.activeElement !== place) tellPlace(time);
  }

  function tellPlace(time) {
    const text = words(time) + ' of ' + words(end) + ', bar ' + barAt(time);
    if (text !== shownWords) place.setAttribute('aria-valuetext', shownWords = text);
  }

  function announce(text) {
    news.textContent = text;
  }

  // The roll follows a playing song, unless the user has scrolled it a moment ago. Scroll places are
  // whole pixels in some browsers, so the true one is kept here.
  const userPause = 4000, easeMs = 80;
  let userScrolled = -userPause, scrolled = 0, followed = 0;

  function follow(moment) {
    if (moment - userScrolled < userPause || dragging) return;
    const x = columnAt(placeNow()) * columnPx, width = roll.clientWidth;
    if (Math.abs(scrolled - roll.scrollLeft) > 1) scrolled = roll.scrollLeft;
    if (lessMotion.matches) {
      if (x < scrolled || x > scrolled + width - columnPx) scrollTo(x - columnPx);
      return;
    }
    // However few frames there are, the sheet catches up in the same time.
    const target = Math.min(Math.max(x - width / 3, 0), song.clientWidth - width);
    const way = target - scrolled, share = 1 - Math.exp((followed - moment) / easeMs);
    followed = moment;
    scrollTo(Math.abs(way) > width || Math.abs(way) < 1 ? target : scrolled + way * share);
  }

  function scrollTo(left) {
    scrolled = Math.min(Math.max(left, 0), Math.max(song.clientWidth - roll.clientWidth, 0));
    roll.scrollLeft = scrolled;
  }

  // Brings the marker into view after a jump.
  function reveal() {
    const x = columnAt(placeNow()) * columnPx, left = roll.scrollLeft;
    userScrolled = -userPause;
    if (x < left || x > left + roll.clientWidth - columnPx) scrollTo(x - roll.clientWidth / 3);
  }

  for (const event of ['wheel', 'touchmove', 'pointerdown'])
    roll.addEventListener(event, () => { userScrolled = performance.now(); }, { passive: true });

  function frame(moment) {
    if (dragging) pullMarker();
    show();
    if (!audio.paused) follow(moment);
    if (!audio.paused || dragging) requestAnimationFrame(frame);
    else running = false;
  }

  let running = false;
  function run() {
    if (!running) requestAnimationFrame(frame);
    running = true;
  }

  // Playing.
  function showState() {
    const playing = !audio.paused;
    play.setAttribute('aria-label', playing ? 'Pause' : 'Play');
    part('playIcon').classList.toggle('off', playing);
    part('pauseIcon').classList.toggle('off', !playing);
    show();
  }

  function fail() {
    news.className = 'failure';
    announce('This browser cannot play the sound. It can still be downloaded below.');
  }

  function toggle() {
    if (!audio.paused) return audio.pause();
    if (placeNow() >= end) seek(0);
    userScrolled = -userPause;
    audio.play().catch((error) => { if (error.name !== 'AbortError') fail(); });
  }

  play.addEventListener('click', toggle);
  audio.addEventListener('play', () => { showState(); run(); });
  audio.addEventListener('pause', showState);
  audio.addEventListener('error', fail);
  audio.addEventListener('ended', () => { showState(); announce('The song has ended.'); });

  // The slider.
  place.addEventListener('input', () => { seek(timeAt(Number(place.value))); reveal(); });
  place.addEventListener('focus', () => tellPlace(placeNow()));

  // Keys.
  function moveByBars(bars) {
    const time = placeNow();
    const bar = bars > 0
      ? Math.floor(columnAt(time + onLine) / barColumns) + 1
      : Math.ceil(columnAt(time - (audio.paused ? onLine : onLinePlaying)) / barColumns) - 1;
    seek(timeAt(Math.min(Math.max(bar * barColumns, 0), columns)));
  }

  const keys = {
    ArrowRight: () => moveByBars(1),
    ArrowUp: () => moveByBars(1),
    ArrowLeft: () => moveByBars(-1),
    ArrowDown: () => moveByBars(-1),
    Home: () => seek(0),
    End: () => seek(end),
  };

  addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.altKey || event.metaKey || event.defaultPrevented) return;
    const onPlay = event.target === play;
    if (event.key === ' ' && !onPlay) {
      if (!event.repeat) {
        toggle();
        announce(audio.paused ? 'Paused' : 'Playing');
      }
      return event.preventDefault();
    }
    // Up and down scroll the page, but a slider takes them too.
    const vertical = event.key === 'ArrowUp' || event.key === 'ArrowDown';
    if (!Object.hasOwn(keys, event.key) || (vertical && event.target !== place)) return;
    keys[event.key]();
    reveal();
    if (event.target === place) tellPlace(placeNow());
    else announce('Bar ' + barAt(placeNow()));
    event.preventDefault();
  });

  // The marker, pulled. Near an edge of the roll, the roll moves on.
  function pullMarker() {
    const edge = roll.getBoundingClientRect(), reach = columnPx * 2;
    const beyond = Math.max(dragging.x - (edge.right - reach), 0) + Math.min(dragging.x - (edge.left + reach), 0);
    if (beyond) scrollTo(roll.scrollLeft + beyond / 2);
    const column = (dragging.x - song.getBoundingClientRect().left - dragging.hold) / columnPx;
    const time = timeAt(Math.min(Math.max(column, 0), columns));
    if (time !== dragging.time) seek(dragging.time = time);
  }

  marker.addEventListener('pointerdown', (event) => {
    if (event.button !== 0) return;
    marker.setPointerCapture(event.pointerId);
    pressed = { from: event.clientX, hold: event.clientX - marker.getBoundingClientRect().left };
  });
  marker.addEventListener('pointermove', (event) => {
    if (!pressed) return;
    if (!dragging && Math.abs(event.clientX - pressed.from) < 3) return;
    dragging = { x: event.clientX, hold: pressed.hold, time: dragging ? dragging.time : null };
    run();
  });
  for (const event of ['pointerup', 'pointercancel', 'lostpointercapture'])
    marker.addEventListener(event, () => {
      if (dragging) {
        pullMarker();
        wasDragged = true;
      }
      dragging = pressed = null;
    });

  // A press on the sheet moves the marker to the beginning of its column. The click that ends a
  // drag is none.
  let wasDragged = false;
  addEventListener('pointerdown', () => { wasDragged = false; }, true);
  song.addEventListener('click', (event) => {
    if (wasDragged) return;
    const column = Math.floor((event.clientX - song.getBoundingClientRect().left) / columnPx);
    seek(timeAt(Math.min(Math.max(column, 0), columns)));
  });

  // The sound is stored once, in the element that plays it without a script. Pieces of a multiple of
  // four characters are whole bytes.
  function soundBlob() {
    const address = audio.getAttribute('src'), pieces = [], length = 1 << 20;
    for (let at = address.indexOf(',') + 1; at < address.length; at += length) {
      const text = atob(address.substr(at, length)), bytes = new Uint8Array(text.length);
      for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
      pieces.push(bytes);
    }
    return URL.createObjectURL(new Blob(pieces, { type: 'audio/mpeg' }));
  }

  const address = soundBlob();
  audio.controls = false;
  audio.className = '';
  audio.preload = 'auto';
  audio.src = address;
  part('getSound').href = address;
  part('getSound').hidden = false;
  part('player').hidden = false;
  marker.hidden = false;
  place.max = columns;
  showState();
})();
