// Between the moments at which a button of the mouse, or a finger, goes down and up again nothing is drawn anew: what was
// pressed would be gone before the press has come to its end. A press behind a field whose text has just been changed is
// such a one, for leaving the field changes the page.

const longestPress = 2000;  // milliseconds: some presses, as on a scroll bar, are never told to have ended

let isPressed = false;
let timer: ReturnType<typeof setTimeout> | undefined;
const waiting = new Set<() => void>();

function release(): void {
  isPressed = false;
  clearTimeout(timer);
  const actions = [...waiting];
  waiting.clear();
  for (const action of actions) action();
}

/** Does something at once, or once behind the press at hand. */
export function afterPress(action: () => void): void {
  if (isPressed) waiting.add(action);
  else action();
}

export function listenForPresses(): void {
  const releaseSoon = () => {
    clearTimeout(timer);
    timer = setTimeout(release);  // the click that the press makes comes first
  };
  addEventListener("pointerdown", (event) => {
    if (!event.isPrimary || event.button !== 0) return;
    isPressed = true;
    clearTimeout(timer);
    timer = setTimeout(release, longestPress);
  }, { capture: true });
  addEventListener("click", () => {
    isPressed = false;  // what the click does is shown at once
    releaseSoon();
  }, { capture: true });
  for (const ending of ["pointerup", "pointercancel"]) addEventListener(ending, releaseSoon, { capture: true });
}
