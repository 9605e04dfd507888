older
