
/** Handlers of signals, to be disconnected together. */
class Connections {
    constructor() {
        this._all = [];
    }

    add(object, signal, handler) {
        this._all.push([object, object.connect(signal, handler)]);
    }

    end() {
        this._all.splice(0).forEach(([object, id]) => object.disconnect(id));
    }
}
