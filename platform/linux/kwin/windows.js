// Runs inside KWin and tells Quorvane of windows. Written for KWin 5.27; where Plasma 6 has another name for
// something, that is tried first.
"use strict";

const service = "%SERVICE%"; // The connection that loaded this, so that nobody else hears it.
const path = "%PATH%";
const interfaceName = "%INTERFACE%";

const told = {}; // By the window's identifier.
const changed = {};

function tell(method, ...values) {
    callDBus(service, path, interfaceName, method, ...values);
}

function idOf(window) {
    return String(window.internalId);
}

/// Windows that users call programs. All others matter only when they get the keys, as launchers do.
function isOrdinary(window) {
    return window.normalWindow || window.dialog || window.utility;
}

/// What runs once this has not been called for so many milliseconds, or since the first call of several.
function later(milliseconds, startsAnew, task) {
    const timer = new QTimer();
    timer.singleShot = true;
    timer.interval = milliseconds;
    timer.timeout.connect(task);
    return () => {
        if (startsAnew || !timer.active) timer.start();
    };
}

function tellWindow(window) {
    const frame = window.frameGeometry;
    const place = window.clientPos || { x: 0, y: 0 }; // Inside the frame.
    const size = window.clientSize || frame;
    told[idOf(window)] = window;
    const bounds = [frame.x + place.x, frame.y + place.y, size.width, size.height].map(Math.round).join(" ");
    // "| 0" gives a whole number, also for the bus.
    tell("WindowChangedTo", idOf(window), String(window.desktopFileName || ""),
        String(window.resourceClass || ""), String(window.caption || ""), window.pid | 0,
        Boolean(window.minimized), bounds);
}

// A window that is dragged changes with every frame.
const collect = later(20, false, () => {
    for (const id of Object.keys(changed)) {
        const window = changed[id];
        delete changed[id];
        if (told[id]) tellWindow(window);
    }
});

function hasChanged(window) {
    changed[idOf(window)] = window;
    collect();
}

function active() {
    return (workspace.activeWindow === undefined ? workspace.activeClient : workspace.activeWindow) || null;
}

// Between two windows nobody is active for a moment.
const tellOfNobody = later(50, true, () => {
    if (!active()) tell("WindowActivated", "");
});

function tellActive(window) {
    if (!window) {
        tellOfNobody();
        return;
    }
    if (!told[idOf(window)]) tellWindow(window);
    tell("WindowActivated", idOf(window));
}

function listen(window, changes, task) {
    for (const name of changes) {
        if (window[name]) window[name].connect(task);
    }
}

function watch(window) {
    listen(window, ["frameGeometryChanged", "clientGeometryChanged", "captionChanged"], () => hasChanged(window));
    listen(window, ["minimizedChanged", "desktopFileNameChanged", "windowClassChanged"], () => {
        if (told[idOf(window)]) tellWindow(window);
    });
    if (isOrdinary(window)) tellWindow(window);
}

function forget(window) {
    const id = idOf(window);
    delete changed[id];
    if (!told[id]) return;
    delete told[id];
    tell("WindowClosed", id);
}

(workspace.windowAdded || workspace.clientAdded).connect(watch);
(workspace.windowRemoved || workspace.clientRemoved).connect(forget);
(workspace.windowActivated || workspace.clientActivated).connect(tellActive);

(workspace.windowList || workspace.clientList).call(workspace).forEach(watch);
// This ends what is told at the beginning.
if (active()) tellActive(active());
else tell("WindowActivated", "");
