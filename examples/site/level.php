River Brack at the mill weir
level 0.62 m, falling
warning above 1.40 m
