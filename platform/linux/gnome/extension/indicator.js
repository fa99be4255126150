
/** The program's indicator: a picture above everything, which never has the keys. */
class Indicator {
    constructor() {
        this._actor = null;
        this._mayBeDragged = false;
        this._connections = new Connections();
        this._connections.add(Main.sessionMode, 'updated', () => this._hideFromLockScreen());
    }

    end() {
        this.hide();
        this._connections.end();
    }

    /** `pixels` in the order of this machine, with premultiplied alpha; `scale` of them make up a point. */
    show(pixels, width, height, x, y, scale, mayBeDragged) {
        this._mayBeDragged = mayBeDragged;
        this._actor ??= this._makeActor();
        const content = St.ImageContent.new_with_preferred_size(width, height);
        setPixels(content, pixels, Cogl.PixelFormat.BGRA_8888_PRE, width, height, width * 4);
        this._actor.set_content(content);
        this._actor.set_size(width / scale, height / scale);
        this._actor.set_position(x, y);
        this._hideFromLockScreen();
    }

    move(x, y) {
        this._actor?.set_position(x, y);
    }

    hide() {
        this._grab?.dismiss();
        this._grab = null;
        this._actor?.destroy();
        this._actor = null;
    }

    _makeActor() {
        const actor = new Clutter.Actor({ reactive: true });
        Main.layoutManager.addTopChrome(actor, { affectsStruts: false, trackFullscreen: false });
        actor.connect('button-press-event', (_, event) => this._pressed(event));
        actor.connect('motion-event', (_, event) => this._moved(event));
        actor.connect('button-release-event', () => this._released());
        return actor;
    }

    _hideFromLockScreen() {
        if (this._actor)
            this._actor.visible = !Main.sessionMode.isLocked;
    }

    _pressed(event) {
        if (this._mayBeDragged && event.get_button() === Clutter.BUTTON_PRIMARY) {
            const [x, y] = event.get_coords();
            this._held = [x - this._actor.x, y - this._actor.y];
            this._grab = global.stage.grab(this._actor);
        }
        return Clutter.EVENT_STOP;
    }

    _moved(event) {
        // Whoever holds the grab without the button would keep everybody's events.
        if (!(event.get_state() & Clutter.ModifierType.BUTTON1_MASK))
            return this._released();
        if (this._grab) {
            const [x, y] = event.get_coords();
            this._actor.set_position(x - this._held[0], y - this._held[1]);
        }
        return Clutter.EVENT_STOP;
    }

    _released() {
        this._grab?.dismiss();
        this._grab = null;
        return Clutter.EVENT_STOP;
    }
}
