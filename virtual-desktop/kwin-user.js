/* What a user of KWin does with windows. The answer to `evaluate` is the value of an expression after this. */
/* exported activate, move, namesInFront, place */

function names(window) {
    return window ? [String(window.caption), String(window.resourceClass)] : [];
}

function namesInFront() {
    return names(workspace.activeClient);
}

function find(name) {
    return workspace.clientList().filter(function (window) {
        return names(window).indexOf(name) >= 0;
    })[0];
}

function activate(name) {
    const window = find(name);
    if (window)
        workspace.activeClient = window;
}

function place(name) {
    const window = find(name);
    const area = window ? window.frameGeometry : { x: 0, y: 0, width: 0, height: 0 };
    return [area.x, area.y, area.width, area.height];
}

function move(name, x, y, width, height) {
    find(name).frameGeometry = { x: x, y: y, width: width, height: height };
}
