
/** The program's decisions, made ahead: which source an application is given when it comes to the front. */
class Rules {
    constructor(sources) {
        this._sources = sources;
        this._front = null; // the key of the application that came to the front last
        this.forget();
    }

    forget() {
        this._byKey = new Map();
        this._sourceOfOthers = '';
        this._activations = 0;
        this._appliedAt = 0;
    }

    /** `rules`: the key of windows, the application that it stands for, and its source; '' leaves it alone. */
    set(rules, sourceOfOthers) {
        this._byKey = new Map(rules.map(([key, application, source]) => [key, { application, source }]));
        this._sourceOfOthers = sourceOfOthers;
    }

    /** A window of that application has the keys; null: none has. */
    activated(key) {
        ++this._activations;
        if (key === null)
            return;
        const { application, source } = this._ruleOf(key);
        const isFront = application !== '' && this._front !== null &&
            application === this._ruleOf(this._front).application;
        this._front = key;
        if (isFront || !source)
            return;
        this._appliedAt = this._activations;
        this._sources.select(source);
    }

    /** An application whose last window closes is in front no more; `open` are the keys of the others. */
    closed(key, open) {
        if (key === this._front && !open.includes(key))
            this._front = null;
    }

    /**
     * What the program selects, knowing so many activations, gives way to the rule of a later one: it was
     * decided for a window that the user has left.
     */
    select(id, activations) {
        return activations < this._appliedAt || this._sources.select(id);
    }

    _ruleOf(key) {
        return this._byKey.get(key) ?? { application: key, source: this._sourceOfOthers };
    }
}
