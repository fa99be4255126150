
/** The identifier under which rules have a source: `xkb:ru:phonetic`, `ibus:libpinyin`. */
function idOf(source) {
    return source ? `${source.type}:${source.type === 'xkb' ? source.id.replace('+', ':') : source.id}` : '';
}

/** The shell's input sources, layouts and engines of IBus: tells of them and selects one. */
class Sources {
    constructor(agent) {
        this._agent = agent;
        this._latin = '';
        this._isListNew = false;
        this._manager = getInputSourceManager();
        this._connections = new Connections();
        // A new list has no current source until the shell has activated one, at once.
        this._connections.add(this._manager, 'sources-changed', () => {
            this._isListNew = true;
        });
        this._connections.add(this._manager, 'current-source-changed', () => this._tell());
    }

    end() {
        this._connections.end();
    }

    tellAll() {
        this._isListNew = true;
        this._tell();
    }

    /** The layout to type with under an engine that brings none of its own. */
    setLatin(id) {
        this._latin = id;
    }

    /** False if there is no such source. */
    select(id) {
        const source = this._find(id);
        if (!source)
            return false;
        if (source === this._manager.currentSource)
            return true;
        const latin = this._find(this._latin);
        if (latin && source.type === 'ibus' && ['', 'default'].includes(source.xkbId))
            getKeyboardManager().apply(latin.xkbId);
        source.activate(false);
        return true;
    }

    _find(id) {
        return Object.values(this._manager.inputSources).find(source => idOf(source) === id);
    }

    _tell() {
        const current = idOf(this._manager.currentSource);
        if (this._isListNew) {
            const sources = Object.values(this._manager.inputSources)
                .map(source => [idOf(source), source.displayName, source.shortName]);
            this._agent.tell('SourcesChanged', '(a(sss)s)', [sources, current]);
        } else if (current !== this._told) {
            this._agent.tell('SourceChanged', '(s)', [current]);
        }
        this._isListNew = false;
        this._told = current;
    }
}
