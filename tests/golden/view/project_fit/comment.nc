(no move)
