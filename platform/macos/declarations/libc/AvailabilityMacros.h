// GoogleTest looks in it for the oldest system, which is newer than all it asks about.
