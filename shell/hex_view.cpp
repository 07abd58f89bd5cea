// The control of the hex view.
