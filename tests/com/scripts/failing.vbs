' What the host must notice.
T.Same 1, 2
T.Check False, "ordinary"
T.Same 1 / 0, 0
